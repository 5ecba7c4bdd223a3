// Whole extractions beside other programs. Each is a process of its own in a fresh folder; what counts
// is its processor time and the time that passes.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <vector>

#include "archive_corpus.h"
#include "temporary_folder.h"
#include "zeapi.h"

#include <benchmark/benchmark.h>

namespace zeapi::bench {
namespace {

namespace fs = std::filesystem;

struct Cost {
  double wall = 0;
  double processor = 0;
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Runs the work in a child whose current directory is a new folder, which is removed afterwards.
Cost InChild(const std::string& folder, const std::function<int()>& work, bool* good) {
  fs::create_directory(folder);
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    _exit(chdir(folder.c_str()) == 0 ? work() : 1);
  }
  int status = 1;
  rusage usage = {};
  wait4(child, &status, 0, &usage);
  const auto end = std::chrono::steady_clock::now();
  *good &= WIFEXITED(status) && WEXITSTATUS(status) == 0;
  fs::remove_all(folder);
  return {std::chrono::duration<double>(end - start).count(),
          Seconds(usage.ru_utime) + Seconds(usage.ru_stime)};
}

using Work = std::function<int()>;

Work Program(std::vector<std::string> words) {
  return [words = std::move(words)] {
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    return 1;
  };
}

Work Library(const std::string& archive) {
  return [archive] { return static_cast<int>(ZeZipExplode(archive.c_str(), nullptr, nullptr)); };
}

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

// As RunPaired(), with a ratio of processor times ("ratio") and one of passed times ("wall").
void RunPrograms(benchmark::State& state, const std::string& folder, const Work& peer,
                 const Work& subject, double shareOfPeer) {
  bool good = true;
  InChild(folder, peer, &good);
  InChild(folder, subject, &good);
  std::vector<double> processor;
  std::vector<double> wall;
  for (auto _ : state) {
    const bool peerFirst = processor.size() % 2 == 0;
    const Cost first = InChild(folder, peerFirst ? peer : subject, &good);
    const Cost second = InChild(folder, peerFirst ? subject : peer, &good);
    const Cost& ours = peerFirst ? second : first;
    const Cost& theirs = peerFirst ? first : second;
    processor.push_back(ours.processor / (theirs.processor * shareOfPeer));
    wall.push_back(ours.wall / (theirs.wall * shareOfPeer));
    state.SetIterationTime(ours.wall);
  }
  state.counters["ratio"] = Median(processor);
  state.counters["wall"] = Median(wall);
  state.counters["peer"] = 0;
  state.counters["subject"] = 0;
  if (!good) state.SkipWithError("an extraction failed");
}

struct Archives {
  TemporaryFolder folder;
  std::string corpus = folder.File("corpus.zip");
  std::string small = folder.File("small.zip");
  std::string half = folder.File("half.zip");
  bool made = false;

  Archives() {
    const fs::path before = fs::current_path();
    fs::current_path(folder.File(""));
    made = ZipSystemFiles(corpus, "list") && ZipSmallFiles(half, "h", 30000) &&
           ZipSmallFiles(small, "s", 60000);
    fs::current_path(before);
  }
};

const Archives& TheArchives() {
  static const Archives archives;
  return archives;
}

enum Peer { kUnzip, kSevenZip, kBsdtar };

Work PeerWork(int peer, const std::string& archive) {
  if (peer == kUnzip) return Program({"unzip", "-q", "-o", archive});
  if (peer == kSevenZip) return Program({"7z", "x", "-y", "-bd", archive});
  return Program({"bsdtar", "-x", "-f", archive});
}

void ExtractCorpus(benchmark::State& state, int peer) {
  const Archives& archives = TheArchives();
  if (!archives.made) return state.SkipWithError("zip is missing");
  RunPrograms(state, archives.folder.File("out"), PeerWork(peer, archives.corpus),
              Library(archives.corpus), 1);
}
BENCHMARK_CAPTURE(ExtractCorpus, unzip, kUnzip)->UseManualTime()->Iterations(7);
BENCHMARK_CAPTURE(ExtractCorpus, 7z, kSevenZip)->UseManualTime()->Iterations(7);
BENCHMARK_CAPTURE(ExtractCorpus, bsdtar, kBsdtar)->UseManualTime()->Iterations(7);

void ExtractSmallFiles(benchmark::State& state) {
  const Archives& archives = TheArchives();
  if (!archives.made) return state.SkipWithError("zip is missing");
  RunPrograms(state, archives.folder.File("out"), PeerWork(kBsdtar, archives.small),
              Library(archives.small), 1);
}
BENCHMARK(ExtractSmallFiles)->UseManualTime()->Iterations(5);

// Twice as many files, in time a file.
void ExtractTwiceAsMany(benchmark::State& state) {
  const Archives& archives = TheArchives();
  if (!archives.made) return state.SkipWithError("zip is missing");
  RunPrograms(state, archives.folder.File("out"), Library(archives.half), Library(archives.small),
              2);
}
BENCHMARK(ExtractTwiceAsMany)->UseManualTime()->Iterations(5);

}  // namespace
}  // namespace zeapi::bench

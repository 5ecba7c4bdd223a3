// Reads a captured job: the PJL, the escape sequences and the data of which it is made.
//
// Any bytes are a job: what is no command is text or data. The reader never looks beyond the end,
// and its work grows with the size of the job alone.
#pragma once

#include <optional>
#include <string>

#include "job/bytes.h"
#include "job/job_event.h"

namespace tool {

class JobReader {
 public:
  // `job` must outlive the reader.
  explicit JobReader(std::span<const std::uint8_t> job) : job_(job) {}

  // The next event; none at the end of the job.
  std::optional<JobEvent> Next();

 private:
  std::optional<JobEvent> ReadAnnounced();
  std::optional<JobEvent> ReadForeignLanguage();
  JobEvent ReadPclPart(std::size_t start, bool continued);
  JobEvent ReadPjlLine();
  JobEvent ReadEscape();
  JobEvent ReadPcl();
  JobEvent ReadBracketK();
  JobEvent ReadRun();
  void FollowPjl(const std::string& line);
  void Announce(std::size_t length, std::string what);
  JobEvent Take(JobEventKind kind, std::size_t length, std::string text = "");

  Bytes job_;
  std::size_t at_ = 0;

  // What the events so far say about the bytes that follow.
  bool lineStart_ = true;      // a PJL line can begin here
  bool dataStart_ = true;      // nothing but job control since the last universal exit
  std::string foreign_;        // a language of which the commands are not read; empty: PCL
  std::string pclGroup_;       // the characters that the parts of a combined command share
  std::size_t announced_ = 0;  // bytes of payload still to come
  std::string announcedName_;
  std::string_view fileEnd_;  // what ends the file that PJL announced; empty: none
};

}  // namespace tool

// What stands in the tree where a member's file is to go, or in the archive's place, and is no plain file.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

#include "archive/archive_case.h"

namespace zeapi::testing {
namespace {

namespace fs = std::filesystem;

class ZipSpecialFiles : public ArchiveTest {
 protected:
  static void MakeSocket(const char* name) {
    const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, name, sizeof(address.sun_path) - 1);
    EXPECT_EQ(bind(socketFile, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    close(socketFile);
  }
};

const ZipArchive kTwoFiles = {{{"file", "1"}, {"good", "2"}}};

TEST_F(ZipSpecialFiles, PipeIsNoFile) {
  ASSERT_EQ(mkfifo("file", 0666), 0);
  EXPECT_EQ(Explode(kTwoFiles), ZE_SHARING_VIOLATION);
  EXPECT_EQ(ReadFile("good"), "2");
}

TEST_F(ZipSpecialFiles, PipeThatSomebodyReadsIsNoFile) {
  ASSERT_EQ(mkfifo("file", 0666), 0);
  const int reader = open("file", O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(Explode(kTwoFiles), ZE_SHARING_VIOLATION);
  char byte = '\0';
  EXPECT_EQ(read(reader, &byte, 1), 0);
  close(reader);
  EXPECT_EQ(ReadFile("good"), "2");
}

TEST_F(ZipSpecialFiles, SocketIsNoFile) {
  MakeSocket("file");
  EXPECT_EQ(Explode(kTwoFiles), ZE_SHARING_VIOLATION);
  EXPECT_EQ(ReadFile("good"), "2");
}

TEST_F(ZipSpecialFiles, DeviceIsNoFile) {
  struct stat null;
  ASSERT_EQ(stat("/dev/null", &null), 0);
  if (mknod("file", S_IFCHR | 0666, null.st_rdev) != 0)
    GTEST_SKIP() << "making a device needs the right to";
  EXPECT_EQ(Explode(kTwoFiles), ZE_SHARING_VIOLATION);
  EXPECT_EQ(ReadFile("good"), "2");
}

TEST_F(ZipSpecialFiles, SpecialFileIsNoFolder) {
  ASSERT_EQ(mkfifo("folder", 0666), 0);
  EXPECT_EQ(Explode({{{"folder/x", "1"}, {"good", "2"}}}), ZE_BAD_FORMAT);
  EXPECT_EQ(ReadFile("good"), "2");
}

// Permissions do not bind the superuser: the test steps down while it extracts.
TEST_F(ZipSpecialFiles, FileThatMayOnlyBeReadStays) {
  WriteFile("file", "old");
  fs::permissions("file", fs::perms::owner_read);
  fs::permissions(".", fs::perms::all);
  fs::permissions("..", fs::perms::all);
  WriteFile("../test.zip", kTwoFiles.Bytes());
  const bool steps = geteuid() == 0;
  ASSERT_TRUE(!steps || seteuid(65534) == 0);
  EXPECT_EQ(ZeZipExplode("../test.zip", nullptr, nullptr), ZE_SHARING_VIOLATION);
  ASSERT_TRUE(!steps || seteuid(0) == 0);
  EXPECT_EQ(ReadFile("file"), "old");
  EXPECT_EQ(ReadFile("good"), "2");
}

// --- The archive itself

TEST_F(ZipSpecialFiles, PipeInThePlaceOfTheArchiveIsNotWaitedFor) {
  ASSERT_EQ(mkfifo("../pipe", 0666), 0);
  EXPECT_EQ(ZeZipExplode("../pipe", nullptr, nullptr), ZE_OPEN_FAILED);
  WriteFile("../pipe.zip", kTwoFiles.Bytes());
  EXPECT_EQ(ZeZipExplode("../pipe", nullptr, nullptr), ZE_OPEN_FAILED);
  ASSERT_EQ(mkfifo("../other.zip", 0666), 0);
  EXPECT_EQ(ZeZipExplode("../other", nullptr, nullptr), ZE_OPEN_FAILED);
  EXPECT_EQ(Tree(), Names{});
}

}  // namespace
}  // namespace zeapi::testing

// DXF file entry points and the atomic save.
#include "platform/dxf/DxfFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <dirent.h>
#include <signal.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/dxf/DxfFileReader.h"
#include "platform/dxf/DxfFileWriter.h"
#include "platform/dxf/DxfTagReader.h"

namespace {
// Temporary files of saves whose process died (killed half way) are removed by the next save of
// the same target: ".<file>.<pid>.XXXXXX" where no process pid runs any more.
void removeDeadSavesTemporaries(const std::string& folder, const std::string& file) {
  DIR* dir = ::opendir(folder.c_str());
  if (!dir) return;
  const std::string prefix = "." + file + ".";
  while (const dirent* entry = ::readdir(dir)) {
    const std::string name = entry->d_name;
    if (name.compare(0, prefix.size(), prefix) != 0) continue;
    char* end = nullptr;
    const long pid = std::strtol(name.c_str() + prefix.size(), &end, 10);
    constexpr std::size_t kUniqueSuffix = 7;  // ".XXXXXX"
    if (pid <= 0 || pid == ::getpid() || std::strlen(end) != kUniqueSuffix || *end != '.') continue;
    if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH)
      ::unlink((folder + (folder.back() == '/' ? "" : "/") + name).c_str());
  }
  ::closedir(dir);
}
}  // namespace

OdDbDatabasePtr DxfFile::read(const OdString& path) {
  std::unique_ptr<DxfTagReader> tags = DxfTagReader::open(path);
  try {
    return DxfFileReader(*tags).read();
  } catch (const OdError& e) {
    throw OdError(e.code(), "'" + path.str() + "', " + e.description());
  }
}

OdDbDatabasePtr DxfFile::readFromMemory(std::string bytes) {
  std::unique_ptr<DxfTagReader> tags = DxfTagReader::fromMemory(std::move(bytes));
  return DxfFileReader(*tags).read();
}

OdDbDatabasePtr DxfFile::recover(const OdString& path, DxfRecoverReport& report) {
  std::unique_ptr<DxfTagReader> survey = DxfTagReader::open(path);
  std::unique_ptr<DxfTagReader> tags = DxfTagReader::open(path);
  try {
    DxfRecoveryPolicy recovery(report);
    recovery.surveyHandles(*survey);
    return DxfFileReader(*tags, &recovery).read();
  } catch (const OdError& e) {
    throw OdError(e.code(), "'" + path.str() + "', " + e.description());
  }
}

OdDbDatabasePtr DxfFile::recoverFromMemory(std::string bytes, DxfRecoverReport& report) {
  std::unique_ptr<DxfTagReader> survey = DxfTagReader::fromMemory(bytes);
  std::unique_ptr<DxfTagReader> tags = DxfTagReader::fromMemory(std::move(bytes));
  DxfRecoveryPolicy recovery(report);
  recovery.surveyHandles(*survey);
  return DxfFileReader(*tags, &recovery).read();
}

std::string DxfFile::writeToMemory(OdDbDatabase* database, const DxfWriteOptions& options) {
  return DxfFileWriter(database, options).write();
}

void DxfFile::write(OdDbDatabase* database, const OdString& path, const DxfWriteOptions& options) {
  writeFileAtomically(path, writeToMemory(database, options));
}

void DxfFile::writeFileAtomically(const OdString& path, const std::string& bytes) {
  const std::string target = path.str();
  const std::size_t slash = target.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash + 1);
  const std::string file = slash == std::string::npos ? target : target.substr(slash + 1);
  std::string temporary = folder + (slash == std::string::npos ? "/." : ".") + file + "." +
                          std::to_string(::getpid()) + ".XXXXXX";
  const auto failure = [&](const char* step, int error) {
    return OdError(eFileWriteError, "cannot save '" + target + "': " + step + " failed: " +
                                        std::strerror(error) + "; the file is unchanged");
  };
  removeDeadSavesTemporaries(folder, file);
  const int fd = ::mkstemp(temporary.data());
  if (fd < 0) throw failure("creating a temporary file", errno);
  const auto discard = [&](const char* step) {
    const int error = errno;
    ::close(fd);
    ::unlink(temporary.c_str());
    return failure(step, error);
  };
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (written < 0) {
      if (errno == EINTR) continue;
      throw discard("writing");
    }
    done += static_cast<std::size_t>(written);
  }
  // A replaced file keeps its permissions; a new one gets those of a plain document.
  struct stat existing {};
  const mode_t mode = ::stat(target.c_str(), &existing) == 0 ? existing.st_mode & 07777 : 0644;
  if (::fchmod(fd, mode) != 0) throw discard("setting permissions");
  if (::fsync(fd) != 0) throw discard("syncing");
  if (::close(fd) != 0) {
    const int error = errno;
    ::unlink(temporary.c_str());
    throw failure("closing", error);
  }
  if (::rename(temporary.c_str(), target.c_str()) != 0) {
    const int error = errno;
    ::unlink(temporary.c_str());
    throw failure("renaming the temporary file", error);
  }
  // The rename itself reaches the disk with the folder.
  const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
}

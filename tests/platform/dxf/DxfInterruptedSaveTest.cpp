// A save killed at any moment leaves the target whole: the old drawing or the new one, byte for
// byte, and the next save removes the killed one's temporary file.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <thread>

#include "platform/db/entities/OdDbLine.h"
#include "platform/db/symtables/OdDbBlockTableRecord.h"
#include "platform/dxf/DxfFile.h"

namespace fs = std::filesystem;

namespace {
std::string slurp(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// Some megabytes of lines; offset makes two drawings differ all through.
OdDbDatabasePtr largeDrawing(double offset) {
  OdDbDatabasePtr db = OdDbDatabase::createObject();
  OdDbObjectPtr modelObject = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  auto* model = static_cast<OdDbBlockTableRecord*>(modelObject.get());
  constexpr int kLines = 20000;
  for (int i = 0; i < kLines; ++i) {
    OdDbLinePtr line = OdDbLine::createObject();
    line->setStartPoint(OdGePoint3d(offset + i, i * 0.5, 0));
    line->setEndPoint(OdGePoint3d(offset - i, i * 0.25, 1));
    model->appendOdDbEntity(line.get());
  }
  return db;
}

int temporaryFiles(const fs::path& folder) {
  int count = 0;
  for (const auto& entry : fs::directory_iterator(folder))
    count += entry.path().filename().string().rfind(".drawing.dxf.", 0) == 0 ? 1 : 0;
  return count;
}
}  // namespace

TEST(DxfInterruptedSave, AKilledSaveLeavesTheOldOrTheNewFileAndTheNextSaveCleansUp) {
  const fs::path folder =
      fs::temp_directory_path() / ("jbcb_killed_save" + std::to_string(::getpid()));
  fs::remove_all(folder);
  fs::create_directories(folder);
  const fs::path target = folder / "drawing.dxf";
  const OdDbDatabasePtr drawings[2] = {largeDrawing(0), largeDrawing(1000)};
  const std::string bytes[2] = {DxfFile::writeToMemory(drawings[0].get()),
                                DxfFile::writeToMemory(drawings[1].get())};
  ASSERT_NE(bytes[0], bytes[1]);

  DxfFile::write(drawings[0].get(), target.string());
  int onDisk = 0;
  const auto saveInChild = [&](int drawing) {
    const pid_t child = ::fork();
    if (child == 0) {
      DxfFile::writeFileAtomically(target.string(), bytes[drawing]);
      ::_exit(0);
    }
    return child;
  };
  // Kill points spread over a save of the written drawing in a child: creating the temporary
  // file, writing, syncing, renaming.
  const auto started = std::chrono::steady_clock::now();
  const pid_t timed = saveInChild(0);
  ASSERT_GT(timed, 0);
  ::waitpid(timed, nullptr, 0);
  const auto saveTime = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - started);

  std::mt19937 random(20261123);
  std::uniform_int_distribution<long> killAfter(0, saveTime.count());
  constexpr int kTrials = 48;
  int keptOld = 0;
  int tookNew = 0;
  int leftTemporary = 0;
  for (int trial = 0; trial < kTrials; ++trial) {
    const int next = 1 - onDisk;
    const pid_t child = saveInChild(next);
    ASSERT_GT(child, 0);
    std::this_thread::sleep_for(std::chrono::microseconds(killAfter(random)));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    // Each save removes what the saves killed before it left.
    const int temporaries = temporaryFiles(folder);
    EXPECT_LE(temporaries, 1) << "trial " << trial;
    leftTemporary += temporaries;
    const std::string after = slurp(target);
    if (after == bytes[next]) {
      ++tookNew;
      onDisk = next;
    } else {
      ASSERT_EQ(after, bytes[onDisk]) << "trial " << trial << ": the target is neither drawing";
      ++keptOld;
    }
  }
  std::cout << bytes[0].size() / 1000 << " kB drawing, " << kTrials
            << " killed saves survived: " << keptOld << " kept the old file, " << tookNew
            << " completed the new one; " << leftTemporary
            << " left a temporary file for the next save to remove\n";

  DxfFile::write(drawings[0].get(), target.string());
  EXPECT_EQ(temporaryFiles(folder), 0);
  EXPECT_EQ(slurp(target), bytes[0]);
  fs::remove_all(folder);
}

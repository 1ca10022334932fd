// The batch loop: the progress bar is erased before any message so the two never mix.
#include "cli/FileBatch.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <sstream>

#include "cli/ProgressBar.h"

int FileBatch::run(const std::vector<std::string>& files, const Task& task) {
  ProgressBar progress(stderr, static_cast<int>(files.size()));
  bool allPassed = true;
  int done = 0;
  for (const std::string& file : files) {
    progress.update(done, file);
    bool passed = false;
    std::string failure;
    std::ostringstream report;
    try {
      passed = task(file, report);
    } catch (const std::exception& error) {
      failure = error.what();
    }
    progress.clear();
    std::cout << report.str();
    if (!failure.empty()) reportError(file, failure);
    allPassed = allPassed && passed;
    progress.update(++done, file);
  }
  return allPassed ? 0 : 1;
}

void FileBatch::reportError(const std::string& file, const std::string& message) {
  std::cout.flush();
  // Messages of the file layer name the file already.
  if (message.find(file) != std::string::npos)
    std::cerr << "jbcb: " << message << std::endl;
  else
    std::cerr << "jbcb: " << file << ": " << message << std::endl;
}

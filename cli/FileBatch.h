// Runs one task per input file, one after another: a failure is reported on standard error with
// the file's name and the rest go on; a progress bar shows on a terminal for long batches.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

class FileBatch {
 public:
  // The task writes its report to out (shown on standard output when it ends) and returns false
  // when the file did not pass; an exception it raises is reported as "FILE: message".
  using Task = std::function<bool(const std::string& file, std::ostream& out)>;

  // Exit code: 0 when every file passed, 1 otherwise.
  static int run(const std::vector<std::string>& files, const Task& task);
  // "jbcb: FILE: message" on standard error (without the prefix when the message names the file).
  static void reportError(const std::string& file, const std::string& message);
};

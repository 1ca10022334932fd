#include "support/ExternalDxfReader.h"

#include <cstdio>
#include <cstdlib>

bool ExternalDxfReaderAvailable() {
  static const bool available =
      std::system("/usr/bin/python3 -c 'import ezdxf' > /dev/null 2>&1") == 0;
  return available;
}

std::string RunExternalDxfReader(const std::string& command, const std::string& path, int* status) {
  const std::string script = JBCB_TEST_SOURCE_DIR "/platform/dxf/dxf_interop.py";
  const std::string line = "/usr/bin/python3 '" + script + "' " + command + " '" + path + "' 2>&1";
  std::string output;
  FILE* pipe = ::popen(line.c_str(), "r");
  char buffer[4096];
  std::size_t count;
  while ((count = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
    output.append(buffer, count);
  const int result = ::pclose(pipe);
  if (status) *status = result;
  return output;
}

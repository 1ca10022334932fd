// Another DXF library (ezdxf, through tests/platform/dxf/dxf_interop.py) as the judge of the files
// we write: what other readers make of them is part of their correctness.
#pragma once

#include <string>

// Whether /usr/bin/python3 can import ezdxf; tests skip their interop checks when it cannot.
bool ExternalDxfReaderAvailable();

// Runs one command of the interop script ("audit", "summary", "create") on `path` and returns
// what it printed; its exit status goes to `status` when given ("audit" exits 0 on a clean audit
// and prints nothing then).
std::string RunExternalDxfReader(const std::string& command, const std::string& path,
                                 int* status = nullptr);

// The reference drawings of tests/data: written by known builds and never regenerated, so that a
// reader and its writer changed together still have to read the files of earlier builds.
#pragma once

#include <gtest/gtest.h>

#include <string>

// The path of a reference file, relative to tests/data.
std::string ReferenceFilePath(const std::string& name);
// Its bytes; fails the test naming the file when it cannot be read.
std::string ReferenceFileBytes(const std::string& name);

// Whether `written` is byte for byte `expected`; otherwise where they first differ, with both
// sides: the line of a text file, the tag and its byte offset in a binary one.
::testing::AssertionResult SameFileBytes(const std::string& expected, const std::string& written);
// Whether `written` holds the tags of `expected` in the same order with the same values, reals
// allowed to differ by rounding (a relative 1e-12); otherwise the first tag that differs.
::testing::AssertionResult SameFileTags(const std::string& expected, const std::string& written);

#pragma once

#include <KOR/FileIO.h>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

struct Result {
    int exitCode = -1;
    std::string out;
    std::string err;
};

/// Runs a line of shell in the source directory, with the built program in the search path.
inline Result shell(const std::string & line) {
    const std::string base = testing::TempDir() + "hyg-cli-" + std::to_string(::getpid());
    const std::string command = "cd '" HYG_SOURCE_DIR "' && PATH='" HYG_BINARY_DIR "':$PATH && { " + line + "\n} >'" +
                                base + ".out' 2>'" + base + ".err' </dev/null";
    const int status = std::system(command.c_str());
    Result result;
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.out = KOR::readFile(base + ".out", 1 << 20);
    result.err = KOR::readFile(base + ".err", 1 << 20);
    std::remove((base + ".out").c_str());
    std::remove((base + ".err").c_str());
    return result;
}

/// Equal, or equal up to a "*" at the end of what is expected.
inline testing::AssertionResult agrees(const std::string & found, std::string_view expected) {
    const bool isPrefix = expected.ends_with('*');
    if (isPrefix ? found.starts_with(expected.substr(0, expected.size() - 1)) : found == expected)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "found: " << found << "\nexpected: " << expected;
}

#pragma once
// Runs one `lumivex` command with its output and errors caught, and with the settings of a
// fresh user, whatever the machine running the tests has configured.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdio>
#include <string>
#include <vector>

#include "ScratchDir.h"

namespace lumivex::test {

struct Output {
    int status = 0;
    std::string out, err;
};

inline std::string ReadAll(std::FILE* f) {
    std::string s(static_cast<std::size_t>(std::ftell(f)), '\0');
    std::rewind(f);
    s.resize(std::fread(s.data(), 1, s.size(), f));
    std::fclose(f);
    return s;
}

template <typename Command>
Output RunCommand(const std::vector<std::string>& args) {
    static const fixtures::ScratchDir config("lvx-config");
    ::setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    const int status = Command().Run(args, out, err);
    return {status, ReadAll(out), ReadAll(err)};
}

// Each piece must show up in `text`.
inline void ExpectPieces(const std::string& text, std::initializer_list<std::string> pieces) {
    for (const std::string& piece : pieces)
        EXPECT_NE(text.find(piece), std::string::npos) << piece << " in " << text;
}

}  // namespace lumivex::test

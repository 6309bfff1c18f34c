// SPDX-License-Identifier: MIT
// Compiles the tables of words and word pairs into the file that the predictor loads.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "predictor/model_build.h"

namespace {

using taviro::predictor::Tables;

bool ReadFile(const char* szPath, Tables& Read) {
    std::ifstream File(szPath, std::ios::binary);
    if (!File) {
        (void)std::fprintf(stderr, "%s: cannot be read\n", szPath);
        return false;
    }
    const std::string strText((std::istreambuf_iterator<char>(File)), {});
    std::string strError;
    if (ReadTable(strText, Read, strError)) return true;
    (void)std::fprintf(stderr, "%s: %s\n", szPath, strError.c_str());
    return false;
}

int Run(int nCount, char** Arguments) {
    if (nCount < 3) {
        (void)std::fprintf(stderr, "usage: dictionary_compiler TABLE... FILE\n");
        return 2;
    }
    Tables Read;
    for (int n = 1; n < nCount - 1; ++n) {
        if (!ReadFile(Arguments[n], Read)) return 1;
    }
    std::string strError;
    const std::string Bytes = BuildModel(Read, strError);
    if (Bytes.empty()) {
        (void)std::fprintf(stderr, "%s\n", strError.c_str());
        return 1;
    }
    std::ofstream File(Arguments[nCount - 1], std::ios::binary | std::ios::trunc);
    File.write(Bytes.data(), static_cast<std::streamsize>(Bytes.size()));
    File.close();
    if (File) return 0;
    (void)std::fprintf(stderr, "%s: cannot be written\n", Arguments[nCount - 1]);
    return 1;
}

}  // namespace

int main(int nCount, char** Arguments) {
    return Run(nCount, Arguments);
}

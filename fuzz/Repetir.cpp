// Gives every file of a folder to a fuzz target, as libFuzzer would: what once broke a promise is held by a test.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho);

/// Only libFuzzer mutates; the targets that mutate on their own ask it.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t*, std::size_t tamanho, std::size_t) {
    return tamanho;
}

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    int vistos = 0;
    for (const auto& entrada : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream arquivo(entrada.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(arquivo), {}};
        std::printf("%s\n", entrada.path().filename().c_str());
        (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++vistos;
    }
    return vistos > 0 ? 0 : 1;
}

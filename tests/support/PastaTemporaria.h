#pragma once

#include "common/Texto.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace quilatador::testes {

/// An empty folder that goes, with all that is in it, when the test ends.
class PastaTemporaria {
  public:
    PastaTemporaria() {
        std::random_device sorteio;
        do
            caminho_ = std::filesystem::temp_directory_path() / ("quilatador-" + std::to_string(sorteio()));
        while (!std::filesystem::create_directory(caminho_));
    }
    PastaTemporaria(const PastaTemporaria&) = delete;
    PastaTemporaria& operator=(const PastaTemporaria&) = delete;
    ~PastaTemporaria() {
        std::error_code ignorado;
        std::filesystem::remove_all(caminho_, ignorado);
    }

    [[nodiscard]] const std::filesystem::path& caminho() const noexcept { return caminho_; }
    [[nodiscard]] std::filesystem::path operator/(const std::filesystem::path& nome) const { return caminho_ / nome; }

    /// Writes a file into the folder, and gives its path.
    std::filesystem::path escrever(const std::filesystem::path& nome, std::string_view bytes) const {
        std::ofstream(caminho_ / nome, std::ios::binary) << bytes;
        return caminho_ / nome;
    }

  private:
    std::filesystem::path caminho_;
};

/// All bytes of a file; "" where it is missing.
inline std::string lerTudo(const std::filesystem::path& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    return {std::istreambuf_iterator<char>(arquivo), {}};
}
/// The same of a file in Windows-1252.
inline Texto lerTexto(const std::filesystem::path& caminho) {
    return Texto(textoDosBytes(lerTudo(caminho)));
}

} // namespace quilatador::testes

#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace quilatador::gerador {

/// Collects lines and writes them in large blocks, so that memory does not grow with the file.
class SaidaEmBlocos {
  public:
    explicit SaidaEmBlocos(std::ostream& destino);

    void acrescentar(std::string_view bytes) {
        if (bloco_.size() + bytes.size() > tamanhoDoBloco) descarregar();
        bloco_.append(bytes);
    }
    /// Writes what is still waiting. When the stream fails, this function and those that add lines raise `Falha` 57.
    void descarregar();

  private:
    static constexpr std::size_t tamanhoDoBloco = 256 * 1024;

    std::ostream& destino_;
    std::string bloco_;
};

} // namespace quilatador::gerador

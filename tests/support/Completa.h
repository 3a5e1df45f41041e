#pragma once

#include "run/Achado.h"
#include "run/ResumoCompleto.h"
#include "support/Falsos.h"

#include <map>
#include <random>
#include <span>
#include <string>
#include <vector>

/// The complete check for tests and fuzz targets. Who includes this links quilatador_test_completa.
namespace quilatador::testes {

/// What a complete check says of a file.
struct Completa {
    ResumoCompleto resumo;
    std::vector<Achado> achados;

    /// The findings that follow from no other and are no notices, a line each: "id linha 12 guia 3", the slip only
    /// where there is one.
    [[nodiscard]] Texto causas() const;
};

/// Checks a remittance completely. With `posicao` its barcodes carry a date, AAAAMMDD where the file does not say.
[[nodiscard]] Completa conferir(VistaTexto arquivo, VistaTexto leiaute, std::int16_t posicao = 0);

/// The lines of a file, without their ends, and a file of lines.
[[nodiscard]] std::vector<Texto> linhasDe(VistaTexto arquivo);
[[nodiscard]] Texto arquivoDe(const std::vector<Texto>& linhas);
/// Numbers the lines from 1.
void numerar(std::vector<Texto>& linhas);

/// Whether a complete check and the log agree about a file as they must; otherwise where they do not. Findings are
/// numbered, each follows from an earlier cause, and has a line of the file. What the log of a file without a fault of
/// structure says is among them. And the errors about a slip are those that the log has for the file cut down to it.
[[nodiscard]] std::string desacordo(VistaTexto arquivo, VistaTexto leiaute, std::int16_t posicao = 0);

/// Puts faults into records: another content in one field, chosen at random among those that rules look at.
class Estragador {
  public:
    explicit Estragador(VistaTexto leiaute);

    /// Changes one field of a whole record; with `soConteudo` none on which the structure of the file rests.
    void operator()(std::span<char> registro, std::mt19937& sorteio, bool soConteudo) const;

  private:
    /// Where a field lies in a record (0-based).
    struct Lugar {
        std::size_t inicio;
        std::size_t tamanho;
        bool daEstrutura;
    };
    std::map<char, std::vector<Lugar>> lugares_; ///< by the letter of the record
};

} // namespace quilatador::testes

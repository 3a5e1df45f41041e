#pragma once

#include "run/TipoArquivo.h"
#include "support/Falsos.h"

#include <cstdint>
#include <span>
#include <string>

namespace quilatador::fuzz {

/// Ends the process where a promise is broken, which is how the fuzzer learns of it.
void exigir(bool promessa, const char* qual);
/// The same for what says itself how the promise is broken, and is empty if it is kept.
void exigir(const std::string& desacordo);

[[nodiscard]] Texto entrada(const std::uint8_t* dados, std::size_t tamanho);

/// Bytes of a file named by an environment variable's default path; read once.
[[nodiscard]] const Texto& leiauteDoPrograma();
[[nodiscard]] const Texto& tabelasDoPrograma();

/// What a run left behind.
struct Resultado {
    Texto log;
    Resumo resumo;
    std::vector<Achado> achados;
    std::vector<Mensagem> mensagens;

    /// Whether two runs cannot be told apart.
    [[nodiscard]] bool igualA(const Resultado& outro) const;
};

/// Analyses "/e.arq" as the front end would, in a world of memory.
[[nodiscard]] Resultado analisar(TipoArquivo tipo, VistaTexto arquivo, VistaTexto leiaute, VistaTexto tabelas);

/// Runs twice and holds what every run promises: an ending in the log, line numbers within the file, the same bytes
/// again, an input that is not touched.
void conferirPromessas(TipoArquivo tipo, VistaTexto arquivo, VistaTexto leiaute, VistaTexto tabelas);

} // namespace quilatador::fuzz

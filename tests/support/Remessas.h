#pragma once

#include "gerarRemessa/Gerador.h"
#include "gerarRemessa/Linha.h"
#include "support/Falsos.h"
#include "support/PastaTemporaria.h"

#include <sstream>

/// Remittances for tests, made by the generator. Who includes this links it and defines QUILATADOR_LEIAUTE.
namespace quilatador::testes {

inline constexpr std::size_t bytesDaLinha = 242; ///< of a remittance, its CR LF among them

/// A valid remittance; without options the shortest there is, with every segment but X and one slip.
inline Texto remessa(const gerador::Opcoes& opcoes = {.registros = gerador::menorRemessa}) {
    std::ostringstream saida;
    gerador::gerar(opcoes, saida);
    return Texto(textoDosBytes(saida.view()));
}

/// The file with another content in one field of a line (1-based).
inline Texto comCampo(Texto arquivo, std::size_t linha, const gerador::Campo& campo, Texto conteudo) {
    conteudo.resize(campo.tamanho, ' ');
    return arquivo.replace((linha - 1) * bytesDaLinha + campo.inicio - 1, campo.tamanho, conteudo);
}

/// The letters of a remittance's records.
inline Texto letrasDe(const Texto& arquivo) {
    Texto letras;
    for (std::size_t i = 0; i < arquivo.size(); i += bytesDaLinha)
        letras.push_back(arquivo[i]);
    return letras;
}

/// The file with the first record of each of these letters there `vezes` times more, and all lines numbered.
inline Texto comRepetidos(const Texto& arquivo, VistaTexto letras, int vezes) {
    Texto resultado;
    for (std::size_t i = 0; i < arquivo.size(); i += bytesDaLinha) {
        const bool escolhido =
            letras.find(arquivo[i]) != VistaTexto::npos && letrasDe(arquivo).find(arquivo[i]) * bytesDaLinha == i;
        for (int vez = escolhido ? -vezes : 0; vez <= 0; ++vez) {
            const auto numero = static_cast<long long>(resultado.size() / bytesDaLinha) + 1;
            resultado += arquivo.substr(i, bytesDaLinha);
            resultado.replace(resultado.size() - 8, 6, comZeros(numero, 6));
        }
    }
    return resultado;
}

/// A world of fakes that has the layout description in the program's folder and a remittance at `entrada`.
struct MundoComRemessa : MundoFalso {
    explicit MundoComRemessa(Texto conteudo = remessa(), const std::filesystem::path& entrada = "/d/remessa.rem") {
        static const Texto leiaute = lerTexto(QUILATADOR_LEIAUTE);
        arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = leiaute;
        arquivos.conteudo[entrada] = std::move(conteudo);
    }
};

} // namespace quilatador::testes

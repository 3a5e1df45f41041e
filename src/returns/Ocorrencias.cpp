#include "returns/Ocorrencias.h"

#include <optional>

namespace quilatador {

namespace {

constexpr VistaTexto antesDoCodigo = " apresenta o seguinte erro: "_t;

} // namespace

Achado Ocorrencias::achado(std::size_t lugar, std::int64_t numero, ConsultasDaRodada& consultas) const {
    const std::optional<Texto>& texto = consultas.ocorrencia(codigo(lugar));
    const auto posicao = static_cast<int>(inicio + lugar * tamanhoDoCodigo);
    return Achado{.id = "zul708.ocorrencia"_t,
                  .gravidade = Gravidade::Ocorrencia,
                  .linha = numero,
                  .segmento = linha_.front(),
                  .campo = CampoDoAchado{junta("CodigoRetorno"_t, textoDe(static_cast<long long>(lugar) + 1)), posicao,
                                         posicao + 1, Texto(codigo(lugar)), std::nullopt},
                  .mensagem = junta("O Registro "_t, trecho(linha_, 235, 6), antesDoCodigo, codigo(lugar),
                                    texto ? " - "_t : ""_t, texto ? VistaTexto(*texto) : VistaTexto())};
}

VistaTexto Ocorrencias::semRegistro(VistaTexto mensagem) noexcept {
    const std::size_t antes = mensagem.find(antesDoCodigo);
    return antes == VistaTexto::npos ? mensagem : mensagem.substr(antes + antesDoCodigo.size());
}

} // namespace quilatador

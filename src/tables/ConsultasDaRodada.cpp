#include "tables/ConsultasDaRodada.h"

#include "common/Falha.h"
#include "tables/BancoDeDados.h"
#include "tables/FalhaDoBanco.h"

namespace quilatador {

VistaTexto ConsultasDaRodada::formaArrecadacao(VistaTexto codigo) {
    return descricao(arrecadacao_, codigo, &BancoDeDados::descricaoFormaArrecadacao);
}

VistaTexto ConsultasDaRodada::formaPagamento(VistaTexto codigo) {
    return descricao(pagamento_, codigo, &BancoDeDados::descricaoFormaPagamento);
}

const std::optional<Texto>& ConsultasDaRodada::ocorrencia(VistaTexto codigo) {
    auto conhecida = ocorrencias_.find(codigo);
    if (conhecida == ocorrencias_.end()) conhecida = ocorrencias_.emplace(codigo, banco().ocorrencia(codigo)).first;
    return conhecida->second;
}

VistaTexto ConsultasDaRodada::descricao(PorCaractere& conhecidas, VistaTexto codigo,
                                        Texto (BancoDeDados::*consulta)(Texto&)) {
    if (codigo.empty()) return {};
    std::optional<Texto>& conhecida = conhecidas[static_cast<unsigned char>(codigo.front())];
    if (!conhecida) {
        Texto procurado(codigo);
        conhecida = (banco().*consulta)(procurado);
    }
    return *conhecida;
}

BancoDeDados& ConsultasDaRodada::banco() const {
    if (banco_ == nullptr)
        throw Falha(falhaDoBanco::naoAberto, "ConsultasDaRodada"_t,
                    junta("O banco de dados "_t, BancoDeDados::nomeDoArquivo, " não está aberto"_t));
    return *banco_;
}

} // namespace quilatador

#pragma once

#include "common/Texto.h"

#include <array>

/// Invented people, streets and towns, in capitals without accents as remittances require.
namespace quilatador::gerador::ficcao {

inline constexpr std::array<VistaTexto, 16> nomes{
    "ANA"_t,   "BENEDITO"_t, "CLARICE"_t, "DAMIAO"_t, "ESTELA"_t, "FLORIANO"_t, "GILDA"_t,   "HORACIO"_t,
    "IRENE"_t, "JACINTO"_t,  "LAURA"_t,   "MATIAS"_t, "NORMA"_t,  "OTAVIO"_t,   "PALMIRA"_t, "RAIMUNDO"_t};
inline constexpr std::array<VistaTexto, 16> sobrenomes{
    "ALENCAR"_t, "BARROS"_t,  "CORDEIRO"_t, "DUARTE"_t,   "ESTEVES"_t, "FAGUNDES"_t, "GOUVEIA"_t,  "HENRIQUES"_t,
    "LACERDA"_t, "MACHADO"_t, "NOGUEIRA"_t, "PINHEIRO"_t, "QUADROS"_t, "RIBAS"_t,    "SALDANHA"_t, "TAVARES"_t};
inline constexpr std::array<VistaTexto, 12> ruas{
    "RUA DAS ACACIAS"_t,      "RUA DO MOINHO"_t,    "AVENIDA DOS IPES"_t, "RUA DA OLARIA"_t,
    "TRAVESSA DO MERCADO"_t,  "RUA DOS TECELOES"_t, "LARGO DA ESTACAO"_t, "AVENIDA BEIRA RIO"_t,
    "RUA SETE DE SETEMBRO"_t, "PRACA DO COLEGIO"_t, "RUA DA FIGUEIRA"_t,  "ALAMEDA DOS JACARANDAS"_t};
inline constexpr std::array<VistaTexto, 6> descricoes{"CASA TERREA"_t,    "SOBRADO"_t, "APARTAMENTO"_t,
                                                      "SALA COMERCIAL"_t, "GALPAO"_t,  "LOTE SEM CONSTRUCAO"_t};
inline constexpr std::array<VistaTexto, 3> mensagens{"NAO RECEBER APOS O VENCIMENTO SEM OS ACRESCIMOS LEGAIS."_t,
                                                     "EM CASO DE DUVIDA PROCURE O ATENDIMENTO DA PREFEITURA."_t,
                                                     "MANTENHA SEU CADASTRO ATUALIZADO."_t};

inline constexpr VistaTexto cidade = "VILA SERENA"_t;
inline constexpr VistaTexto uf = "SP"_t;

} // namespace quilatador::gerador::ficcao

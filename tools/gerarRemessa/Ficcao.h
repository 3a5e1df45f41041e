#pragma once

#include "common/Texto.h"

#include <array>

/// People, streets and towns that do not exist, in capitals without accents as remittances must be.
namespace quilatador::gerador::ficcao {

inline constexpr std::array<VistaTexto, 16> nomes{"ANA",   "BENEDITO", "CLARICE", "DAMIAO",  "ESTELA", "FLORIANO",
                                                  "GILDA", "HORACIO",  "IRENE",   "JACINTO", "LAURA",  "MATIAS",
                                                  "NORMA", "OTAVIO",   "PALMIRA", "RAIMUNDO"};
inline constexpr std::array<VistaTexto, 16> sobrenomes{
    "ALENCAR", "BARROS",  "CORDEIRO", "DUARTE",   "ESTEVES", "FAGUNDES", "GOUVEIA",  "HENRIQUES",
    "LACERDA", "MACHADO", "NOGUEIRA", "PINHEIRO", "QUADROS", "RIBAS",    "SALDANHA", "TAVARES"};
inline constexpr std::array<VistaTexto, 12> ruas{"RUA DAS ACACIAS",  "RUA DO MOINHO",       "AVENIDA DOS IPES",
                                                 "RUA DA OLARIA",    "TRAVESSA DO MERCADO", "RUA DOS TECELOES",
                                                 "LARGO DA ESTACAO", "AVENIDA BEIRA RIO",   "RUA SETE DE SETEMBRO",
                                                 "PRACA DO COLEGIO", "RUA DA FIGUEIRA",     "ALAMEDA DOS JACARANDAS"};
inline constexpr std::array<VistaTexto, 6> descricoes{"CASA TERREA",    "SOBRADO", "APARTAMENTO",
                                                      "SALA COMERCIAL", "GALPAO",  "LOTE SEM CONSTRUCAO"};
inline constexpr std::array<VistaTexto, 3> mensagens{"NAO RECEBER APOS O VENCIMENTO SEM OS ACRESCIMOS LEGAIS.",
                                                     "EM CASO DE DUVIDA PROCURE O ATENDIMENTO DA PREFEITURA.",
                                                     "MANTENHA SEU CADASTRO ATUALIZADO."};

inline constexpr VistaTexto cidade = "VILA SERENA";
inline constexpr VistaTexto uf = "SP";

} // namespace quilatador::gerador::ficcao

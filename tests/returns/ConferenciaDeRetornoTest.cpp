#include "returns/ConferenciaDeRetorno.h"

#include "returns/Retornos.h"
#include "support/PastaTemporaria.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using namespace testes;

using enum TipoArquivo;

/// A file, and what its complete check says.
struct Conferida : Bancada {
    explicit Conferida(Texto conteudo) : Bancada(nullptr, std::move(conteudo)) {}

    ResumoCompleto conferir(TipoArquivo tipo) {
        return conferirRetorno(tipo, mundo.ambiente, "/d/março.ret", globais, ouvintes, cancelado, versao);
    }
    std::optional<VersaoDoArquivo> versao = mundo.arquivos.versao("/d/março.ret");
    /// The findings, each as "n(cause) Lline segment slip id: field positions found=expected".
    [[nodiscard]] Texto achados() const {
        Texto todos;
        for (const Achado& a : ouvinte.achados) {
            todos += junta(textoDe(a.n), "("_t, textoDe(a.causa), ") L"_t, textoDe(a.linha), " "_t,
                           a.segmento ? Texto(1, a.segmento) : Texto("-"_t),
                           a.guia ? junta(textoDe(a.guia), a.idGuia) : Texto(), " "_t, a.id);
            if (a.campo)
                todos += junta(": "_t, a.campo->nome, " "_t, textoDe(a.campo->inicio), "-"_t, textoDe(a.campo->fim),
                               " "_t, a.campo->encontrado, "="_t, a.campo->esperado.value_or(Texto("?"_t)));
            todos += "\n"_t;
        }
        return todos;
    }
};

const Texto header = registro({{1, "A2"_t}, {80, "03"_t}});
const Texto real = registro({{1, "G"_t}, {82, "000000000100"_t}});
const Texto curto = real.substr(0, 92);
const Texto comLetras = registro({{1, "G"_t}, {82, "00000000O100"_t}});
constexpr VistaTexto tresDeUm = "Z00000300000000000000100"_t;
constexpr VistaTexto quatroDeDois = "Z00000400000000000000200"_t;

TEST(ConferenciaTAV001, comparaOTrailer) {
    const std::pair<Texto, VistaTexto> casos[] = {
        {lerTexto(QUILATADOR_SAMPLES "/retorno-liquidacao/retorno.ret"), ""_t},
        {linhas({header, ""_t, real, "    "_t, real, quatroDeDois, ""_t}), ""_t},
        {linhas({header, real, "Q"_t, "Z000003"_t}),
         "1(0) L4 Z tav001.totalRegistros.diferente: TotalRegistros 2-7 000003=000004\n"
         "2(0) L4 Z tav001.valorTotal.diferente: ValorTotal 8-24 =00000000000000100\n"_t},
        {linhas({header, comLetras, real, curto, "Z00000500000000000000300"_t}),
         "1(0) L2 G tav001.valor.ilegivel: ValorRecebido 82-93 00000000O100=?\n"
         "2(0) L4 G tav001.valor.ilegivel: ValorRecebido 82-93 00000000010=?\n"
         "3(1) L5 Z tav001.valorTotal.diferente: ValorTotal 8-24 00000000000000300=?\n"_t},
        {linhas({header, real, ""_t}), "1(0) L2 - tav001.trailer.ausente\n"_t},
        {linhas({header, real, tresDeUm, ""_t, header, tresDeUm}), "1(0) L5 A tav001.depoisDoTrailer\n"_t},
        {linhas({header, real, quatroDeDois, real}), "1(0) L4 G tav001.depoisDoTrailer\n"_t},
        {linhas({header, quatroDeDois, real}),
         "1(0) L3 G tav001.depoisDoTrailer\n"
         "2(0) L2 Z tav001.totalRegistros.diferente: TotalRegistros 2-7 000004=000002\n"
         "3(0) L2 Z tav001.valorTotal.diferente: ValorTotal 8-24 00000000000000200=00000000000000000\n"_t},
        {linhas({registro({{1, "A2"_t}, {80, "02"_t}}), tresDeUm}),
         "1(0) L1 - tav001.tipoInvalido: VersaoLayout 80-81 02=03\n"_t},
        {Texto(), "1(0) L0 - tav001.trailer.ausente\n"_t}};
    for (const auto& [arquivo, esperado] : casos) {
        Conferida conferida(arquivo);
        const ResumoCompleto resumo = conferida.conferir(TAV001);
        EXPECT_EQ(conferida.achados(), esperado);
        EXPECT_EQ(resumo.erros - resumo.causas, esperado.find("(1)"_t) == VistaTexto::npos ? 0 : 1);
        EXPECT_EQ(resumo.parcial(), esperado.find("tipoInvalido"_t) != VistaTexto::npos);
    }
}

TEST(ConferenciaTAV001, somaQueNaoCabeNoCampo) {
    Texto arquivo = linhas({header});
    for (int i = 0; i <= 100'000; ++i)
        arquivo += linhas({registro({{1, "G"_t}, {82, "999999999999"_t}}, 93)});
    Conferida conferida(junta(arquivo, "Z10000399999999999999999"_t));
    static_cast<void>(conferida.conferir(TAV001));
    EXPECT_EQ(conferida.achados(),
              "1(0) L100003 Z tav001.valorTotal.diferente: ValorTotal 8-24 99999999999999999=?\n"_t);
}

const Texto impressao = linhas(
    {registro({{1, "A"_t}, {12, "ZUL708"_t}, {229, "120000"_t}}), registro({{1, "S"_t}, {12, "000000000000001"_t}}),
     registro({{1, "S"_t}, {12, "000000000000002"_t}, {229, "050012"_t}}), registro({{1, "Y"_t}, {229, "05"_t}}),
     registro({{1, "S"_t}, {229, "00  00"_t}}), registro({{1, "Z"_t}, {229, "05"_t}})});

TEST(ConferenciaZUL708, daAGuiaDeCadaOcorrencia) {
    Conferida conferida(impressao);
    const ResumoCompleto resumo = conferida.conferir(ZUL708);
    EXPECT_EQ(conferida.achados(), "1(0) L1 A zul708.ocorrencia: CodigoRetorno1 229-230 12=?\n"
                                   "2(0) L3 S2000000000000002 zul708.ocorrencia: CodigoRetorno1 229-230 05=?\n"
                                   "3(0) L3 S2000000000000002 zul708.ocorrencia: CodigoRetorno3 233-234 12=?\n"
                                   "4(0) L4 Y2000000000000002 zul708.ocorrencia: CodigoRetorno1 229-230 05=?\n"
                                   "5(0) L6 Z zul708.ocorrencia: CodigoRetorno1 229-230 05=?\n"_t);
    EXPECT_EQ(resumo.guias, (ContagemDeGuias{.lidas = 3, .certas = 2, .comErro = 1}));
    EXPECT_EQ(std::tuple(resumo.registros, resumo.ocorrencias, resumo.erros), std::tuple(6, 5, 0));
    EXPECT_EQ(conferida.banco.consultas(), 2u);
}

TEST(ConferenciaDeRetorno, dizPorQueNaoFoiAteOFim) {
    using Preparar = std::function<void(Conferida&)>;
    const auto mudar = [](Conferida& c) { c.mundo.arquivos.conteudo["/d/março.ret"] += "Z"_t; };
    const std::tuple<Preparar, Desfecho, VistaTexto, int> casos[] = {
        {[](Conferida& c) { c.mundo.arquivos.conteudo.clear(); }, Desfecho::NaoRodou, "Arquivo não encontrado"_t, 0},
        {[](Conferida& c) { c.globais.bancoDeDados = nullptr; }, Desfecho::NaoRodou,
         "O banco de dados TabelaErrosZUL.mdb não está aberto"_t, 0},
        {mudar, Desfecho::NaoRodou, arquivoAlterado, 0},
        {[&](Conferida& c) { c.mundo.painel.naLinha(2, [&] { mudar(c); }); }, Desfecho::NaoRodou, arquivoAlterado, 1},
        {[](Conferida& c) { c.mundo.painel.naLinha(3, [&] { c.cancelado = true; }); }, Desfecho::Cancelada, ""_t, 0}};
    for (const auto& [preparar, desfecho, descricao, certas] : casos) {
        Conferida conferida(impressao);
        preparar(conferida);
        const ResumoCompleto resumo = conferida.conferir(ZUL708);
        EXPECT_EQ(std::tuple(resumo.desfecho, VistaTexto(resumo.descricao)), std::tuple(desfecho, descricao));
        EXPECT_EQ(resumo.guias.certas, certas);
    }
}

} // namespace
} // namespace quilatador

#include "support/Completa.h"

#include "layout/ArquivoRemessaBD.h"
#include "validator/Depurador.h"

#include <algorithm>
#include <map>
#include <set>

namespace quilatador::testes {

namespace {

constexpr const char* caminho = "/d/r.rem";

/// A world with one remittance and a validator.
struct Bancada {
    Bancada(VistaTexto arquivo, VistaTexto leiaute, std::int16_t posicao) {
        mundo.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = leiaute;
        mundo.arquivos.conteudo[caminho] = arquivo;
        depurador.emplace(mundo.ambiente, globais, cancelado);
        depurador->PosicaoDataBarra = posicao;
        depurador->FormatoDataBarra = "AAAAMMDD"_t;
    }

    MundoFalso mundo;
    modVariaveis globais;
    std::atomic<bool> cancelado = false;
    std::optional<Depurador> depurador;
    RelatorMemoria relator;
};

struct Log {
    Resumo resumo;
    std::vector<Achado> achados;
};

Log depurar(VistaTexto arquivo, VistaTexto leiaute, std::int16_t posicao) {
    Bancada b(arquivo, leiaute, posicao);
    Relator* const ouvintes[] = {&b.relator};
    Rodada rodada(b.mundo.ambiente, {.nomeArquivo = caminho, .ouvintes = ouvintes}, b.cancelado);
    Log log{.resumo = b.depurador->depurar(rodada), .achados = {}};
    log.achados = std::move(b.relator.achados);
    return log;
}

bool deLeitura(const Achado& achado) {
    return achado.id.starts_with("leitura."_t);
}

/// What two findings about the same fault have in common.
std::string chave(const Achado& a) {
    return utf8DeTexto(junta(a.id, " | "_t, a.mensagem, " | "_t, a.campo ? VistaTexto(a.campo->nome) : VistaTexto()));
}

/// What `menos` has beyond `mais`, one key a line; equal keys count.
std::string faltando(const std::multiset<std::string>& menos, std::multiset<std::string> mais) {
    std::string texto;
    for (const std::string& um : menos) {
        const auto lugar = mais.find(um);
        if (lugar == mais.end())
            texto += um + "\n";
        else
            mais.erase(lugar);
    }
    return texto;
}

std::size_t linhasLidas(VistaTexto arquivo) {
    ArquivosEmMemoria arquivos;
    arquivos.conteudo[caminho] = arquivo;
    LeitorDeLinhas leitor(arquivos.abrirEntrada(caminho));
    std::size_t lidas = 0;
    while (leitor.proxima())
        ++lidas;
    return lidas;
}

std::string desacordoDosNumeros(const Completa& completa, std::size_t linhas) {
    std::set<std::int64_t> causas;
    std::int64_t n = 0;
    for (const Achado& a : completa.achados) {
        if (a.n != ++n) return "the numbers are not 1, 2, 3...: " + chave(a);
        if (a.causa != 0 && !causas.contains(a.causa)) return "the cause is no earlier cause: " + chave(a);
        if (a.causa == 0) causas.insert(a.n);
        if (a.linha < 1 || a.linha > static_cast<std::int64_t>(std::max<std::size_t>(linhas, 1)))
            return "the line is none of the file: " + chave(a);
        if (a.guia < 0 || a.guia > completa.resumo.guias.lidas) return "the slip is none of the file: " + chave(a);
        if (deLeitura(a) && a.id != "leitura.linhaDeslocada"_t && a.id != "leitura.tipo"_t && a.campo &&
            a.campo->esperado && a.campo->nome != "Sequencial"_t)
            return "something is expected of what cannot be read: " + chave(a);
    }
    const ContagemDeGuias& g = completa.resumo.guias;
    if (g.lidas != g.certas + g.comErro + g.emParte + g.naoConferidas) return "the slips do not add up";
    return {};
}

/// The file cut down to one slip: the definitions in front of its end, the slip (1-based), and the trailer.
std::vector<Texto> soComAGuia(const std::vector<Texto>& linhas, std::int64_t guia) {
    std::vector<Texto> corte;
    std::int64_t desta = 0;
    for (const Texto& linha : linhas) {
        const char letra = linha.front();
        if (letra == 'Z') {
            corte.push_back(linha);
            break;
        }
        if (letra == 'S') ++desta;
        if ((letra < 'S' && desta <= guia) || (letra >= 'S' && desta == guia)) corte.push_back(linha);
    }
    numerar(corte);
    return corte;
}

std::string desacordoDaGuia(const Completa& completa, const Log& corte, std::int64_t guia) {
    std::multiset<std::string> daCompleta, doLog;
    for (const Achado& a : completa.achados)
        if (a.guia == guia && a.gravidade == Gravidade::Erro && !deLeitura(a)) daCompleta.insert(chave(a));
    const Achado* parada = nullptr;
    for (const Achado& a : corte.achados) {
        if (a.gravidade == Gravidade::Estrutural) parada = &a;
        if (a.gravidade == Gravidade::Erro && a.segmento >= 'S' && a.segmento < 'Z') doLog.insert(chave(a));
    }
    if (const std::string falta = faltando(doLog, daCompleta); !falta.empty()) return "only the log has\n" + falta;
    if (!parada) {
        const std::string sobra = faltando(daCompleta, doLog);
        return sobra.empty() ? sobra : "only the complete check has\n" + sobra;
    }
    const auto mesmoCampo = [&](const Achado& a) {
        return a.segmento == parada->segmento && a.campo && parada->campo && a.campo->nome == parada->campo->nome;
    };
    return !parada->campo || std::ranges::any_of(completa.achados, mesmoCampo)
               ? ""
               : "the log ended at a field of which the complete check says nothing\n" + chave(*parada);
}

bool definicoesLidas(const Completa& completa) {
    return std::ranges::none_of(completa.achados, [](const Achado& a) {
        return a.id == "completa.semDefinicao"_t || (deLeitura(a) && a.segmento < 'S');
    });
}

} // namespace

Texto Completa::causas() const {
    Texto texto;
    for (const Achado& a : achados) {
        if (a.causa != 0 || !contaComoErro(a.gravidade, a.discutido)) continue;
        texto += junta(a.id, " linha "_t, textoDe(a.linha));
        if (a.guia != 0) texto += junta(" guia "_t, textoDe(a.guia));
        texto += "\n"_t;
    }
    return texto;
}

Completa conferir(VistaTexto arquivo, VistaTexto leiaute, std::int16_t posicao) {
    Bancada b(arquivo, leiaute, posicao);
    Relator* const ouvintes[] = {&b.relator};
    Completa completa{.resumo = b.depurador->conferirTudo({.arquivo = caminho}, ouvintes), .achados = {}};
    completa.achados = std::move(b.relator.achados);
    return completa;
}

std::vector<Texto> linhasDe(VistaTexto arquivo) {
    std::vector<Texto> linhas;
    constexpr VistaTexto fim = "\r\n"_t;
    while (!arquivo.empty()) {
        const std::size_t ate = std::min(arquivo.find(fim), arquivo.size());
        linhas.emplace_back(arquivo.substr(0, ate));
        arquivo.remove_prefix(std::min(ate + fim.size(), arquivo.size()));
    }
    return linhas;
}

Texto arquivoDe(const std::vector<Texto>& linhas) {
    Texto arquivo;
    for (const Texto& linha : linhas)
        arquivo += junta(linha, "\r\n"_t);
    return arquivo;
}

void numerar(std::vector<Texto>& linhas) {
    for (std::size_t i = 0; i < linhas.size(); ++i)
        linhas[i].replace(linhas[i].size() - 6, 6, comZeros(static_cast<long long>(i) + 1, 6));
}

std::string desacordo(VistaTexto arquivo, VistaTexto leiaute, std::int16_t posicao) {
    const Log log = depurar(arquivo, leiaute, posicao);
    const Completa completa = conferir(arquivo, leiaute, posicao);
    if (std::string errado = desacordoDosNumeros(completa, linhasLidas(arquivo)); !errado.empty()) return errado;

    const bool semEstrutura =
        std::ranges::none_of(completa.achados, [](const Achado& a) { return a.gravidade == Gravidade::Estrutural; });
    const auto parada = std::ranges::find(log.achados, Gravidade::Estrutural, &Achado::gravidade);
    const bool pelaEstrutura = parada != log.achados.end() && !deLeitura(*parada);
    if (pelaEstrutura && semEstrutura) return "only the log has a fault of structure: " + chave(*parada);
    if (!semEstrutura || log.resumo.desfecho == Desfecho::NaoRodou) return {};

    std::multiset<std::string> daCompleta, doLog;
    for (const Achado& a : completa.achados)
        daCompleta.insert(chave(a));
    for (const Achado& a : log.achados)
        if (a.gravidade == Gravidade::Erro) doLog.insert(chave(a));
    if (const std::string falta = faltando(doLog, daCompleta); !falta.empty())
        return "of the log's findings the complete check lacks\n" + falta;

    if (!definicoesLidas(completa)) return {};
    const std::vector<Texto> linhas = linhasDe(arquivo);
    for (std::int64_t guia = 1; guia <= completa.resumo.guias.lidas; ++guia) {
        const Log corte = depurar(arquivoDe(soComAGuia(linhas, guia)), leiaute, posicao);
        if (const std::string errado = desacordoDaGuia(completa, corte, guia); !errado.empty())
            return "slip " + std::to_string(guia) + ": " + errado;
    }
    return {};
}

Estragador::Estragador(VistaTexto leiaute) {
    MundoFalso mundo;
    mundo.arquivos.conteudo["/l.xml"] = leiaute;
    const auto lido = ArquivoRemessaBD::obterArquivoRemessa("/l.xml", mundo.arquivos, mundo.painel, mundo.relogio);
    const std::set<VistaTexto> estrutura{"TipoReg"_t, "Convenio"_t, "Sequencial"_t, "NomeArquivo"_t, "VersaoLayout"_t};
    for (const auto& tipo : lido->tiposRegistros())
        for (const auto& campo : tipo->campos())
            lugares_[tipo->nome().front()].push_back({static_cast<std::size_t>(campo->inicio() - 1),
                                                      static_cast<std::size_t>(campo->Tamanho()),
                                                      estrutura.contains(campo->nome())});
}

void Estragador::operator()(std::span<char> registro, std::mt19937& sorteio, bool soConteudo) const {
    static constexpr VistaTexto modelos[] = {
        ""_t,         "0"_t,        "1"_t,        "9"_t,    "-1"_t,   "+1"_t, ",5"_t,  "1.5"_t,
        "20260310"_t, "20990230"_t, "00000000"_t, "S"_t,    "N"_t,    "C"_t,  "ACP"_t, "X"_t,
        "1.00.01"_t,  "1.00.02"_t,  "ZUL702"_t,   "4034"_t, "4366"_t, "O"_t,  "6"_t,   "00"_t};
    const auto doRegistro = lugares_.find(registro.empty() ? '\0' : registro.front());
    if (doRegistro == lugares_.end()) return;
    const Lugar& lugar = doRegistro->second[sorteio() % doRegistro->second.size()];
    if ((soConteudo && lugar.daEstrutura) || lugar.inicio + lugar.tamanho > registro.size()) return;
    Texto texto(modelos[sorteio() % std::size(modelos)]);
    const char enchimento = " 0"[sorteio() % 2];
    if (texto.size() < lugar.tamanho)
        texto.insert(sorteio() % 2 == 0 ? texto.size() : 0, lugar.tamanho - texto.size(), enchimento);
    std::ranges::copy(VistaTexto(texto).substr(0, lugar.tamanho),
                      registro.begin() + static_cast<std::ptrdiff_t>(lugar.inicio));
}

} // namespace quilatador::testes

#include "gerarRemessa/Remessa.h"

#include "common/DV.h"
#include "gerarRemessa/CodigoDeBarras.h"
#include "gerarRemessa/Ficcao.h"
#include "gerarRemessa/PosicoesZUL702.h"
#include "gerarRemessa/Sorteio.h"
#include "gerarRemessa/Trocas.h"

#include <algorithm>

namespace quilatador::gerador {

namespace {

constexpr std::uint32_t guiasPadrao = 3;

/// The optional records of the definition part, in the order in which longer files get them. Every file has the records
/// A B C D E F G K L and the trailer.
constexpr VistaTexto definicoesOpcionais = "LLLGGKKHIJ"_t;
constexpr std::uint32_t definicoesExigidas = 10;
/// A slip has at least S T U V W and Y. Up to three more Y and then three X are optional.
constexpr std::uint32_t menorGuia = 6;
constexpr std::uint32_t maiorGuia = 12;
constexpr std::uint32_t segmentosUnicos = 5;
static_assert(definicoesExigidas + menorGuia == menorRemessa);
static_assert(definicoesExigidas + definicoesOpcionais.size() + maximoDeGuias * maiorGuia <= maiorRemessa);

struct OpcaoDePagamento {
    char tipo;
    std::uint32_t numero;
    VistaTexto vencimento; ///< in the format AAAAMMDD
    VistaTexto denominacao;
};
constexpr std::array<OpcaoDePagamento, 4> opcoesDePagamento{{{'C', 0, "20990210"_t, "COTA UNICA COM DESCONTO"_t},
                                                             {'P', 1, "20990310"_t, "PRIMEIRA PARCELA"_t},
                                                             {'P', 2, "20990410"_t, "SEGUNDA PARCELA"_t},
                                                             {'P', 3, "20990510"_t, "TERCEIRA PARCELA"_t}}};

constexpr std::array<VistaTexto, 3> caracteristicas{"AREA DO TERRENO (M2)"_t, "AREA CONSTRUIDA (M2)"_t,
                                                    "ANO DA CONSTRUCAO"_t};
constexpr std::array<VistaTexto, 3> receitas{"IMPOSTO PREDIAL"_t, "TAXA DE COLETA DE LIXO"_t, "TAXA DE ILUMINACAO"_t};
/// The rate of the first revenue in hundredths of a per cent.
constexpr std::uint64_t aliquota = 150;

constexpr std::array camposValorRec{campo('U', "ValorRec1"), campo('U', "ValorRec2"), campo('U', "ValorRec3")};
constexpr std::array camposCaract{campo('W', "Caract1"), campo('W', "Caract2"), campo('W', "Caract3")};
constexpr std::array camposMensagem{campo('X', "Mensagem1"), campo('X', "Mensagem2"), campo('X', "Mensagem3")};
constexpr std::array camposParte{campo('Y', "Parte1"), campo('Y', "Parte2"), campo('Y', "Parte3"),
                                 campo('Y', "Parte4")};
constexpr std::array camposDV{campo('Y', "DV1"), campo('Y', "DV2"), campo('Y', "DV3"), campo('Y', "DV4")};

/// The bank's answers to every tenth record: one to three codes, among them one that no table has.
constexpr std::array<VistaTexto, 7> respostas{"010000"_t, "050000"_t, "071220"_t, "002000"_t,
                                              "980000"_t, "99    "_t, "202122"_t};

VistaTexto ocorrencias(std::uint32_t sequencial) {
    return sequencial % 10 == 0 ? respostas[sequencial / 10 % respostas.size()] : "000000"_t;
}

class Remessa {
  public:
    Remessa(const Opcoes& opcoes, SaidaEmBlocos& saida);

    std::uint64_t gerar();

  private:
    void definicoes();
    void identificacao();
    void convenio();
    void recebimento();
    void repetidos();

    [[nodiscard]] std::uint32_t tamanhoDaGuia();
    void guia(std::uint32_t tamanho);
    void contribuinte();
    std::uint64_t composicao();
    void objeto();
    void mensagens(std::uint32_t quantas);
    void pagamento(const OpcaoDePagamento& opcao, std::uint64_t valor);
    void barras(Linha& linha, const OpcaoDePagamento& opcao, std::uint64_t valor);

    /// The line of a record type, with the content of its last record.
    [[nodiscard]] Linha& linha(char segmento) { return linhas_[static_cast<std::size_t>(segmento - 'A')]; }
    void escrever(char segmento, std::uint64_t idRegistro = 0);
    void comecarTrocas();
    [[nodiscard]] Linha comTrocas(char segmento);
    [[nodiscard]] std::uint32_t quantos(char segmento) const;

    Opcoes opcoes_;
    SaidaEmBlocos& saida_;
    Sorteio sorteio_;
    VistaTexto opcionais_ = definicoesOpcionais;
    std::uint32_t guiasAFazer_ = 0;     ///< slips still to write, when `Opcoes` gives their number
    std::uint32_t registrosAFazer_ = 0; ///< slip records still to write, when `Opcoes` gives the number of records

    std::array<Linha, 26> linhas_;
    std::uint32_t sequencial_ = 0;
    std::uint32_t guia_ = 0;
    std::uint32_t numeroDoConvenio_;
    int moeda_;
    std::array<char, 4> empresa_;
    bool trocando_ = false;
    std::array<std::uint32_t, 26> ordem_{};
};

Remessa::Remessa(const Opcoes& opcoes, SaidaEmBlocos& saida)
    : opcoes_(opcoes)
    , saida_(saida)
    , sorteio_(opcoes.semente)
    , numeroDoConvenio_(sorteio_.entre(100'000, 999'999))
    , moeda_(static_cast<int>(sorteio_.entre(6, 9))) {
    escreverDigitos(empresa_, sorteio_.entre(1, 9999));
    if (opcoes.registros) {
        const std::uint32_t folga = *opcoes.registros - menorRemessa;
        opcionais_ = definicoesOpcionais.substr(0, folga);
        registrosAFazer_ = *opcoes.registros - definicoesExigidas - static_cast<std::uint32_t>(opcionais_.size());
    } else {
        guiasAFazer_ = opcoes.guias.value_or(guiasPadrao);
    }
    for (char segmento = 'A'; segmento <= 'Z'; ++segmento) {
        linha(segmento).texto(campo("TipoReg"), {VistaTexto(&segmento, 1)});
        linha(segmento).numero(campo("Convenio"), numeroDoConvenio_);
    }
    for (const Campo& proprio : camposProprios) // most revenues stay at zero
        if (proprio.segmento == 'U') linha('U').numero(proprio, 0);
}

std::uint64_t Remessa::gerar() {
    definicoes();
    while (const std::uint32_t tamanho = tamanhoDaGuia())
        guia(tamanho);
    linha('Z').numero(campo('Z', "TotalRegistros"), sequencial_ + 1u);
    escrever('Z');
    return sequencial_;
}

void Remessa::definicoes() {
    comecarTrocas();
    identificacao();
    convenio();
    recebimento();
    repetidos();
    trocando_ = false;
}

void Remessa::identificacao() {
    const Texto raiz = junta(comZeros(sorteio_.entre(10'000'000, 99'999'999), 8), "0001"_t);
    const Texto digitos = DV::CalcularCNPJ(raiz);

    Linha& a = linha('A');
    a.texto(campo('A', "NomeArquivo"), {opcoes_.tipo == Tipo::ZUL708 ? "ZUL708"_t : "ZUL702"_t});
    a.texto(campo('A', "VersaoLayout"), {"1.00.01"_t});
    a.texto(campo('A', "DataGeracao"), {"20260701"_t});
    a.numero(campo('A', "NroRemessa"), sorteio_.entre(1, 999'999));
    a.texto(campo('A', "CNPJ"), {raiz, digitos});
    a.texto(campo('A', "IdProduto"), {"8"_t});
    a.texto(campo('A', "TipoRemessa"), {"1"_t});
    a.texto(campo('A', "TipoForm"), {"3"_t});
    a.texto(campo('A', "IndPostagem"), {"S"_t});
    escrever('A');

    Linha& b = linha('B');
    b.texto(campo('B', "CNPJ"), {raiz, digitos});
    b.texto(campo('B', "Nome"), {"PREFEITURA MUNICIPAL DE "_t, ficcao::cidade});
    b.texto(campo('B', "Endereco"), {"PRACA DO PACO MUNICIPAL, 1"_t});
    b.texto(campo('B', "Bairro"), {"CENTRO"_t});
    b.texto(campo('B', "Cidade"), {ficcao::cidade});
    b.texto(campo('B', "UF"), {ficcao::uf});
    b.numero(campo('B', "CEP"), 13'999'000);
    escrever('B');
}

void Remessa::convenio() {
    Linha& c = linha('C');
    c.numero(campo('C', "SegFebraban"), 1);
    c.texto(campo('C', "IDFebraban"), {"0000"_t, VistaTexto(empresa_.data(), empresa_.size())});
    c.numero(campo('C', "Moeda"), static_cast<std::uint64_t>(moeda_));
    c.numero(campo('C', "Decimais"), 2);
    c.texto(campo('C', "FormatoData"), {"4"_t}); // the code for AAAAMMDD
    c.texto(campo('C', "indAposReceb"), {"N"_t});
    c.numero(campo('C', "idServico"), 1);
    c.texto(campo('C', "Finalidade"), {"ARRECADACAO DE TRIBUTOS MUNICIPAIS"_t});
    escrever('C');
}

void Remessa::recebimento() {
    Linha& d = linha('D');
    d.texto(campo('D', "Denominacao"), {"CONTRIBUINTE"_t});
    d.texto(campo('D', "SiglaID"), {"CPF"_t});
    d.texto(campo('D', "Significado"), {"CADASTRO DE PESSOAS FISICAS"_t});
    d.texto(campo('D', "TipoID"), {"N"_t});
    d.numero(campo('D', "TamanhoID"), 11);
    d.texto(campo('D', "Transmitente"), {"SECRETARIA DE FINANCAS"_t});
    escrever('D');

    Linha& e = linha('E');
    e.texto(campo('E', "Nome"), {"IMPOSTO PREDIAL E TERRITORIAL URBANO"_t});
    e.texto(campo('E', "Sigla"), {"IPTU"_t});
    e.texto(campo('E', "UnidadeConv"), {"REAL"_t});
    e.texto(campo('E', "DenExercicio"), {"EXERCICIO"_t});
    e.texto(campo('E', "Exercicio"), {"2099"_t});
    e.texto(campo('E', "TitComposicao"), {"COMPOSICAO DO VALOR"_t});
    e.texto(campo('E', "DenSequencial"), {"NUMERO DA GUIA"_t});
    e.numero(campo('E', "NroOpcoes"), quantos('L'));
    e.numero(campo('E', "Parcelamento"), quantos('L') - 1);
    e.texto(campo('E', "FormaCalculo"), {"A"_t});
    e.texto(campo('E', "Checar data"), {"S"_t});
    e.texto(campo('E', "Checar valor"), {"S"_t});
    escrever('E');

    Linha& f = linha('F');
    f.texto(campo('F', "Denominacao"), {"IMOVEL"_t});
    f.texto(campo('F', "SiglaID"), {"INSCRICAO"_t});
    f.texto(campo('F', "SignificadoID"), {"INSCRICAO IMOBILIARIA"_t});
    f.texto(campo('F', "TipoID"), {"N"_t});
    f.numero(campo('F', "TamanhoID"), 12);
    f.texto(campo('F', "TituloCaract"), {"CARACTERISTICAS DO IMOVEL"_t});
    escrever('F');
}

void Remessa::repetidos() {
    for (std::uint32_t i = 1; i <= quantos('G'); ++i) {
        linha('G').numero(campo('G', "Codigo"), i);
        linha('G').texto(campo('G', "Denominacao"), {caracteristicas[i - 1]});
        escrever('G', i);
    }
    linha('H').texto(campo('H', "Texto"), {"PAGAVEL EM QUALQUER AGENCIA ATE O VENCIMENTO"_t});
    linha('I').texto(campo('I', "Texto"), {"INFORMACOES AO CONTRIBUINTE"_t});
    linha('J').texto(campo('J', "Texto"), {"GUIA EMITIDA POR PROCESSAMENTO ELETRONICO"_t});
    for (const char segmento : {'H', 'I', 'J'})
        if (quantos(segmento) > 1) escrever(segmento, 1);
    for (std::uint32_t i = 1; i <= quantos('K'); ++i) {
        linha('K').numero(campo('K', "Numero"), i);
        linha('K').texto(campo('K', "Denominacao"), {receitas[i - 1]});
        escrever('K', i);
    }
    for (std::uint32_t i = 1; i <= quantos('L'); ++i) {
        const OpcaoDePagamento& opcao = opcoesDePagamento[i - 1];
        linha('L').texto(campo('L', "TipoPag"), {VistaTexto(&opcao.tipo, 1)});
        linha('L').numero(campo('L', "NroPag"), opcao.numero);
        linha('L').texto(campo('L', "DataVenc"), {opcao.vencimento});
        linha('L').texto(campo('L', "Denominacao"), {opcao.denominacao});
        escrever('L', i);
    }
}

/// The number of records in the next slip, or 0 when there are no more slips. The last slip gets its faults.
std::uint32_t Remessa::tamanhoDaGuia() {
    std::uint32_t tamanho = 0;
    if (guiasAFazer_ > 0) {
        tamanho = sorteio_.entre(maiorGuia - 2, maiorGuia);
        if (--guiasAFazer_ == 0) comecarTrocas();
    } else if (registrosAFazer_ > 0) {
        // The records that remain for the next slip must never be fewer than the smallest slip needs.
        tamanho = registrosAFazer_ <= maiorGuia       ? registrosAFazer_
                  : registrosAFazer_ <= 2 * maiorGuia ? registrosAFazer_ / 2
                                                      : sorteio_.entre(maiorGuia - 2, maiorGuia);
        registrosAFazer_ -= tamanho;
        if (registrosAFazer_ == 0) comecarTrocas();
    }
    return tamanho;
}

void Remessa::guia(std::uint32_t tamanho) {
    const auto pagamentos = std::min(tamanho - segmentosUnicos, static_cast<std::uint32_t>(opcoesDePagamento.size()));
    ++guia_;
    const std::uint64_t total = composicao();

    Linha& s = linha('S');
    s.numero(campo('S', "IdGuia"), guia_);
    s.texto(campo('S', "DataEmissao"), {"20260701"_t});
    s.texto(campo('S', "DataValidade"), {"20991231"_t});
    s.numero(campo('S', "ValorTotal"), total);
    s.numero(campo('S', "nroOpcoesPag"), pagamentos);
    s.numero(campo('S', "Parcelamento"), pagamentos - 1);
    s.texto(campo('S', "indEndereco"), {sorteio_.abaixoDe(4) == 0 ? "O"_t : "C"_t});
    escrever('S');
    contribuinte();
    escrever('U');
    objeto();
    mensagens(tamanho - segmentosUnicos - pagamentos);

    const std::uint64_t parcelas = std::max(pagamentos - 1, 1u);
    for (std::uint32_t i = 0; i < pagamentos; ++i) {
        // All installments are equal, except that the first one also gets the remainder of the division.
        const std::uint64_t parcela = total / parcelas + (i == 1 ? total % parcelas : 0);
        pagamento(opcoesDePagamento[i], i == 0 ? total : parcela);
        escrever('Y', i + 1);
    }
}

void Remessa::contribuinte() {
    Texto cpf = comZeros(sorteio_.abaixoDe(1'000'000'000), 9);
    const Texto digitos = DV::CalcularCPF(cpf);
    Linha& t = linha('T');
    t.texto(campo('T', "Identificacao"), {VistaTexto(cpf).substr(0, 9), digitos});
    t.texto(campo('T', "Nome"), {sorteio_.umDe(ficcao::nomes), " "_t, sorteio_.umDe(ficcao::sobrenomes), " "_t,
                                 sorteio_.umDe(ficcao::sobrenomes)});
    t.texto(campo('T', "Endereco"), {sorteio_.umDe(ficcao::ruas), ", "_t, comZeros(sorteio_.entre(1, 2000), 1)});
    t.texto(campo('T', "Cidade"), {ficcao::cidade});
    t.texto(campo('T', "UF"), {ficcao::uf});
    t.numero(campo('T', "CEP"), sorteio_.entre(13'999'000, 13'999'999));
    escrever('T');
}

/// Fills in the record U and returns its total in cents.
std::uint64_t Remessa::composicao() {
    const std::uint64_t valorVenal = sorteio_.entre(2'000'000, 90'000'000);
    std::uint64_t total = valorVenal * aliquota / 10'000;
    linha('U').numero(camposValorRec[0], valorVenal);
    linha('U').numero(campo('U', "Aliquota1"), aliquota);
    for (std::uint32_t i = 1; i < camposValorRec.size(); ++i) {
        const std::uint64_t taxa = i < quantos('K') ? sorteio_.entre(1'000, 50'000) : 0;
        linha('U').numero(camposValorRec[i], taxa);
        total += taxa;
    }
    return total;
}

void Remessa::objeto() {
    Linha& v = linha('V');
    v.texto(campo('V', "Identificacao"), {comZeros(guia_ * 1'000LL + sorteio_.abaixoDe(1'000), 12)});
    v.texto(campo('V', "Descricao"), {sorteio_.umDe(ficcao::descricoes)});
    v.texto(campo('V', "Endereco"), {sorteio_.umDe(ficcao::ruas), ", "_t, comZeros(sorteio_.entre(1, 2000), 1)});
    v.texto(campo('V', "Cidade"), {ficcao::cidade});
    v.texto(campo('V', "UF"), {ficcao::uf});
    v.numero(campo('V', "CEP"), sorteio_.entre(13'999'000, 13'999'999));
    escrever('V');

    const std::uint32_t terreno = sorteio_.entre(125, 2'000);
    const std::array<std::uint32_t, 3> conteudos{terreno, terreno / sorteio_.entre(1, 4), sorteio_.entre(1950, 2025)};
    for (std::uint32_t i = 0; i < quantos('G'); ++i)
        linha('W').texto(camposCaract[i], {comZeros(conteudos[i], 1)});
    escrever('W');
}

void Remessa::mensagens(std::uint32_t quantas) {
    for (std::uint32_t i = 0; i < quantas; ++i) {
        for (std::uint32_t j = 0; j < camposMensagem.size(); ++j)
            linha('X').texto(camposMensagem[j], {ficcao::mensagens[(i + j) % ficcao::mensagens.size()]});
        escrever('X', i + 1);
    }
}

void Remessa::pagamento(const OpcaoDePagamento& opcao, std::uint64_t valor) {
    Linha& y = linha('Y');
    y.texto(campo('Y', "TipoPag"), {VistaTexto(&opcao.tipo, 1)});
    y.numero(campo('Y', "NroPag"), opcao.numero);
    y.texto(campo('Y', "DataVenc"), {opcao.vencimento});
    y.numero(campo('Y', "ValorPag"), valor);
    barras(y, opcao, valor);
}

/// Fills in the barcode. The company's own part contains the due date (from position 20), the agreement, the slip and
/// the number of the payment.
void Remessa::barras(Linha& linha, const OpcaoDePagamento& opcao, std::uint64_t valor) {
    std::array<char, 25> campoLivre;
    const std::span livre(campoLivre);
    std::ranges::copy(opcao.vencimento, campoLivre.begin());
    escreverDigitos(livre.subspan<8, 6>(), numeroDoConvenio_);
    escreverDigitos(livre.subspan<14, 9>(), guia_);
    escreverDigitos(livre.subspan<23, 2>(), opcao.numero);

    const CodigoDeBarras codigo = fazerCodigoDeBarras({.segmento = '1',
                                                       .moeda = moeda_,
                                                       .valor = valor,
                                                       .empresa = {empresa_.data(), empresa_.size()},
                                                       .campoLivre = {campoLivre.data(), campoLivre.size()}});
    for (std::size_t i = 0; i < camposParte.size(); ++i) {
        const VistaTexto parte(codigo.data() + i * 11, 11);
        const char digito = digitoVerificador(parte, moeda_);
        linha.texto(camposParte[i], {parte});
        linha.texto(camposDV[i], {VistaTexto(&digito, 1)});
    }
}

void Remessa::escrever(char segmento, std::uint64_t idRegistro) {
    Linha& pronta = linha(segmento);
    pronta.numero(campo("IDRegistro"), idRegistro);
    pronta.numero(campo("Sequencial"), ++sequencial_);
    if (opcoes_.tipo == Tipo::ZUL708) pronta.texto(campo("Ocorrencias"), {ocorrencias(sequencial_)});
    saida_.acrescentar(trocando_ ? comTrocas(segmento).bytes() : pronta.bytes());
}

/// Starts to put faults into the records, which are now counted again from 1 within each type.
void Remessa::comecarTrocas() {
    trocando_ = opcoes_.falhas;
    ordem_.fill(0);
}

Linha Remessa::comTrocas(char segmento) {
    Linha trocada = linha(segmento);
    const std::uint32_t ordem = ++ordem_[static_cast<std::size_t>(segmento - 'A')];
    for (const Troca& troca : trocas)
        if (troca.campo.segmento == segmento && troca.ordem == ordem) trocada.texto(troca.campo, {troca.conteudo});
    return trocada;
}

/// How many records of a repeatable type the definition part has: one, and the optional ones.
std::uint32_t Remessa::quantos(char segmento) const {
    return 1 + static_cast<std::uint32_t>(std::ranges::count(opcionais_, segmento));
}

} // namespace

std::uint64_t gerarRemessa(const Opcoes& opcoes, SaidaEmBlocos& saida) {
    return Remessa(opcoes, saida).gerar();
}

} // namespace quilatador::gerador

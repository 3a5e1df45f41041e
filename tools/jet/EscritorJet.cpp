#include "jet/EscritorJet.h"

#include "jet/LinhaJet.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace quilatador {

namespace {

constexpr double dia = 45000; // of creation: always the same, so that the file is too
constexpr std::uint32_t codigoDePagina = 1252;
constexpr std::uint32_t ordem = 0x0409;       // of texts: "General"
constexpr std::uint32_t semDono = 0x4C41564C; // "LVAL", on the pages of long texts
constexpr std::uint32_t paiDasTabelas = 0x0F000001;
constexpr std::uint32_t objetoDoSistema = 0x80000000;
constexpr std::size_t maiorTextoNaLinha = 64;

/// A page of rows, which fill it from its end. Its head has the free bytes, the owner (the page of the table's
/// definition), the number of rows and where each starts.
class PaginaDeDados {
  public:
    PaginaDeDados(const FormatoJet& formato, std::uint32_t dono) : formato_(&formato), dono_(dono) {}

    [[nodiscard]] bool cabe(const Texto& linha) const {
        return formato_->contagemDeLinhas + 2 + 2 * (linhas_.size() + 1) + ocupados_ + linha.size() <= formato_->pagina;
    }
    void incluir(Texto linha) {
        if (!cabe(linha)) throw std::length_error("a row does not fit its page");
        ocupados_ += linha.size();
        linhas_.push_back(std::move(linha));
    }
    [[nodiscard]] Texto bytes() const {
        Texto pagina(formato_->pagina, '\0');
        const std::size_t lugares = formato_->contagemDeLinhas + 2;
        gravarNumero(pagina, 0, static_cast<std::uint8_t>(PaginaJet::Dados) | 0x0100, 2);
        gravarNumero(pagina, 2, formato_->pagina - lugares - 2 * linhas_.size() - ocupados_, 2);
        gravarNumero(pagina, lugarJet::proximaPagina, dono_, 4);
        gravarNumero(pagina, formato_->contagemDeLinhas, linhas_.size(), 2);
        std::size_t inicio = formato_->pagina;
        for (std::size_t i = 0; i < linhas_.size(); ++i) {
            inicio -= linhas_[i].size();
            pagina.replace(inicio, linhas_[i].size(), linhas_[i]);
            gravarNumero(pagina, lugares + 2 * i, inicio, 2);
        }
        return pagina;
    }

  private:
    const FormatoJet* formato_;
    std::uint32_t dono_;
    std::vector<Texto> linhas_;
    std::size_t ocupados_ = 0;
};

/// The columns of the table of all objects, without which no reader opens a file.
std::vector<ColunaJet> colunasDoCatalogo() {
    return {{"Id", TipoJet::Longo, 0},
            {"ParentId", TipoJet::Longo, 0},
            {"Name", TipoJet::Caracteres, 255},
            {"Type", TipoJet::Inteiro, 0},
            {"DateCreate", TipoJet::DataHora, 0},
            {"DateUpdate", TipoJet::DataHora, 0},
            {"Owner", TipoJet::Binario, 255},
            {"Flags", TipoJet::Longo, 0},
            {"Database", TipoJet::Memo, 0},
            {"Connect", TipoJet::Memo, 0},
            {"ForeignName", TipoJet::Caracteres, 255},
            {"RmtInfoShort", TipoJet::Binario, 255},
            {"RmtInfoLong", TipoJet::Ole, 0},
            {"Lv", TipoJet::Ole, 0},
            {"LvProp", TipoJet::Ole, 0},
            {"LvModule", TipoJet::Ole, 0},
            {"LvExtra", TipoJet::Ole, 0}};
}

std::vector<ValorJet> objeto(std::uint32_t definicao, const Texto& nome, std::uint32_t sinais) {
    std::vector<ValorJet> linha{double{static_cast<double>(definicao)},
                                double{paiDasTabelas},
                                nome,
                                1.0,
                                dia,
                                dia,
                                {},
                                static_cast<double>(static_cast<std::int32_t>(sinais))};
    linha.resize(colunasDoCatalogo().size());
    return linha;
}

/// Makes the file page by page: header, map of the whole file, catalogue, and for each table its definition, the maps
/// of its pages, and its rows.
class Escritor {
  public:
    explicit Escritor(const BancoJet& banco) : banco_(banco), formato_(banco.versao == VersaoJet::Jet3 ? jet3 : jet4) {}

    [[nodiscard]] Texto escrever();

  private:
    [[nodiscard]] std::uint32_t reservar();
    [[nodiscard]] Texto cabecalho() const;
    void escreverTabela(const TabelaJet& tabela, std::uint32_t definicao, bool doSistema);
    [[nodiscard]] std::vector<std::uint32_t> escreverLinhas(const TabelaJet& tabela, std::uint32_t definicao);
    [[nodiscard]] Texto guardarLongo(const Texto& bytes);
    [[nodiscard]] std::uint32_t guardarPedaco(Texto pedaco);
    [[nodiscard]] Texto mapa(const std::vector<std::uint32_t>& paginas);
    [[nodiscard]] Texto descreverTabela(const TabelaJet& tabela, std::uint32_t mapas, bool doSistema) const;
    [[nodiscard]] Texto descreverColunas(const std::vector<ColunaJet>& colunas) const;
    void escreverDefinicao(Texto descricao, std::uint32_t pagina);

    const BancoJet& banco_;
    const FormatoJet& formato_;
    std::vector<Texto> paginas_;
};

Texto Escritor::escrever() {
    static_cast<void>(reservar()); // 0: the header
    const std::uint32_t mapaDoArquivo = reservar();
    const std::uint32_t definicaoDoCatalogo = reservar();
    PaginaDeDados livres(formato_, mapaDoArquivo);
    livres.incluir(mapa({}));
    livres.incluir(mapa({}));
    paginas_[mapaDoArquivo] = livres.bytes();
    TabelaJet catalogo{"MSysObjects", colunasDoCatalogo(), {}};
    catalogo.linhas.push_back(objeto(definicaoDoCatalogo, catalogo.nome, objetoDoSistema));
    for (const TabelaJet& tabela : banco_.tabelas) {
        const std::uint32_t definicao = reservar();
        escreverTabela(tabela, definicao, false);
        catalogo.linhas.push_back(objeto(definicao, tabela.nome, 0));
    }
    escreverTabela(catalogo, definicaoDoCatalogo, true);
    paginas_[0] = cabecalho();
    Texto arquivo;
    for (std::uint32_t n = 0; n < paginas_.size(); ++n) {
        if (n > 0 && banco_.chave != 0) cifrarJet(paginas_[n], banco_.chave ^ n);
        arquivo += paginas_[n];
    }
    return arquivo;
}

/// The number of a new page, empty so far.
std::uint32_t Escritor::reservar() {
    paginas_.emplace_back(formato_.pagina, '\0');
    return static_cast<std::uint32_t>(paginas_.size() - 1);
}

/// Page 0: signature, version and, ciphered, code page, order of texts, key, password and day of creation.
Texto Escritor::cabecalho() const {
    constexpr std::size_t ordemJet3 = 0x3A;
    constexpr std::size_t pagina1252 = 0x3C;
    constexpr std::size_t ordemJet4 = 0x6E;
    Texto pagina(formato_.pagina, '\0');
    pagina.replace(0, lugarJet::assinatura.size(), lugarJet::assinatura);
    gravarNumero(pagina, lugarJet::versao, static_cast<std::uint32_t>(formato_.versao), 4);
    gravarNumero(pagina, formato_.versao == VersaoJet::Jet3 ? ordemJet3 : ordemJet4, ordem, 2);
    gravarNumero(pagina, pagina1252, codigoDePagina, 2);
    gravarNumero(pagina, lugarJet::chave, banco_.chave, 4);
    if (formato_.versao == VersaoJet::Jet4) gravarNumero(pagina, lugarJet::data, std::bit_cast<std::uint64_t>(dia), 8);
    for (std::size_t i = 0; i < banco_.senha.size(); ++i)
        gravarNumero(pagina, lugarJet::senha + i * formato_.larguraDaContagem,
                     static_cast<unsigned char>(banco_.senha[i]), formato_.larguraDaContagem);
    mascararSenhaJet(pagina, formato_);
    cifrarCabecalhoJet(pagina, formato_);
    return pagina;
}

void Escritor::escreverTabela(const TabelaJet& tabela, std::uint32_t definicao, bool doSistema) {
    const std::uint32_t mapas = reservar();
    PaginaDeDados paginaDosMapas(formato_, 0);
    paginaDosMapas.incluir(mapa(escreverLinhas(tabela, definicao)));
    paginaDosMapas.incluir(mapa({}));
    paginas_[mapas] = paginaDosMapas.bytes();
    escreverDefinicao(descreverTabela(tabela, mapas, doSistema), definicao);
}

/// Writes the rows of a table, and gives the pages that they take.
std::vector<std::uint32_t> Escritor::escreverLinhas(const TabelaJet& tabela, std::uint32_t definicao) {
    std::vector<std::uint32_t> usadas;
    PaginaDeDados pagina(formato_, definicao);
    const auto fechar = [&] {
        usadas.push_back(reservar());
        paginas_[usadas.back()] = pagina.bytes();
        pagina = PaginaDeDados(formato_, definicao);
    };
    for (const auto& valores : tabela.linhas) {
        Texto linha =
            montarLinhaJet(tabela.colunas, valores, formato_, [&](const Texto& longo) { return guardarLongo(longo); });
        if (!pagina.cabe(linha)) fechar();
        pagina.incluir(std::move(linha));
    }
    if (!tabela.linhas.empty()) fechar();
    return usadas;
}

/// Puts a long text away and gives its head: in the row where it is short, as one row of a page of its own where that
/// has room for it, else as a chain of such rows, each with the place of the next in front.
Texto Escritor::guardarLongo(const Texto& bytes) {
    constexpr std::uint32_t naLinha = 0x80000000;
    constexpr std::uint32_t inteiro = 0x40000000;
    const std::size_t maiorPedaco = formato_.pagina - formato_.contagemDeLinhas - 4;
    std::uint32_t sinal = bytes.size() <= maiorTextoNaLinha ? naLinha : bytes.size() <= maiorPedaco ? inteiro : 0;
    std::uint32_t lugar = 0;
    if (sinal == inteiro) lugar = guardarPedaco(bytes);
    for (std::size_t resto = sinal == 0 ? bytes.size() : 0; resto > 0;) {
        const std::size_t tamanho = std::min(resto, maiorPedaco - sizeof lugar);
        resto -= tamanho;
        Texto pedaco;
        juntarNumero(pedaco, lugar, sizeof lugar);
        lugar = guardarPedaco(pedaco.append(bytes, resto, tamanho));
    }
    Texto cabeca;
    juntarNumero(cabeca, bytes.size() | sinal, 4);
    juntarNumero(cabeca, lugar, 4);
    juntarNumero(cabeca, 0, 4);
    return sinal == naLinha ? cabeca + bytes : cabeca;
}

/// The place of a piece: its page in the upper three bytes, its row in the lowest.
std::uint32_t Escritor::guardarPedaco(Texto pedaco) {
    PaginaDeDados pagina(formato_, semDono);
    pagina.incluir(std::move(pedaco));
    const std::uint32_t numero = reservar();
    paginas_[numero] = pagina.bytes();
    return numero << 8;
}

/// A map of pages: kind 0, its first page and a bit for each page from there on; or, for those that are too far
/// apart for that, kind 1 and the numbers of pages that have nothing but bits, from page 0 on.
Texto Escritor::mapa(const std::vector<std::uint32_t>& paginas) {
    constexpr std::size_t cabeca = 5;
    constexpr std::size_t cabecaDaPagina = 4;
    const std::size_t bytesNaLinha = formato_.pagina / (formato_.versao == VersaoJet::Jet3 ? 16 : 64);
    Texto linha(cabeca + bytesNaLinha, '\0');
    if (paginas.empty()) return linha;
    const auto marcar = [](Texto& bits, std::size_t inicio, std::size_t qual) {
        char& byte = bits[inicio + qual / 8];
        byte = static_cast<char>(byte | 1 << (qual % 8));
    };
    if (!banco_.mapasEmPaginas && paginas.back() - paginas.front() < 8 * bytesNaLinha) {
        gravarNumero(linha, 1, paginas.front(), 4);
        for (const std::uint32_t pagina : paginas)
            marcar(linha, cabeca, pagina - paginas.front());
        return linha;
    }
    if (paginas.back() >= 8 * (formato_.pagina - cabecaDaPagina)) throw std::length_error("too many pages for one map");
    const std::uint32_t paginaDoMapa = reservar();
    gravarNumero(linha, 0, 1, 1);
    gravarNumero(linha, 1, paginaDoMapa, 4);
    gravarNumero(paginas_[paginaDoMapa], 0, static_cast<std::uint8_t>(PaginaJet::Mapa) | 0x0100, 2);
    for (const std::uint32_t pagina : paginas)
        marcar(paginas_[paginaDoMapa], cabecaDaPagina, pagina);
    return linha;
}

/// The definition of a table: its numbers, its columns, their names, and no indexes.
Texto Escritor::descreverTabela(const TabelaJet& tabela, std::uint32_t mapas, bool doSistema) const {
    constexpr std::size_t ligadoEmJet4 = 24;
    const auto colunas = tabela.colunas.size();
    const auto variaveis = static_cast<std::size_t>(
        std::ranges::count_if(tabela.colunas, [](const ColunaJet& c) { return tamanhoFixo(c.tipo) == 0; }));
    Texto descricao(formato_.entradas, '\0');
    gravarNumero(descricao, formato_.quantidadeDeLinhas, tabela.linhas.size(), 4);
    if (formato_.versao == VersaoJet::Jet4) gravarNumero(descricao, ligadoEmJet4, 1, 1);
    gravarNumero(descricao, formato_.tipoDeTabela, doSistema ? 'S' : 'N', 1);
    gravarNumero(descricao, formato_.colunasDaLinha, colunas, 2);
    gravarNumero(descricao, formato_.colunasVariaveis, variaveis, 2);
    gravarNumero(descricao, formato_.colunas, colunas, 2);
    gravarNumero(descricao, formato_.paginasUsadas, mapas << 8, 4);
    gravarNumero(descricao, formato_.paginasLivres, mapas << 8 | 1, 4);
    descricao += descreverColunas(tabela.colunas);
    for (const ColunaJet& coluna : tabela.colunas) {
        Texto nome; // never compressed
        for (const char c : coluna.nome)
            juntarNumero(nome, static_cast<unsigned char>(c), formato_.larguraDaContagem);
        juntarNumero(descricao, nome.size(), formato_.larguraDaContagem);
        descricao += nome;
    }
    juntarNumero(descricao, 0xFFFF, 2); // end of the list of columns of long texts, of which no reader asks
    return descricao;
}

Texto Escritor::descreverColunas(const std::vector<ColunaJet>& colunas) const {
    constexpr unsigned podeSerNula = 0x02;
    const std::size_t lugarDaOrdem = formato_.lugarVariavel + 4;
    Texto descricao;
    std::size_t lugarFixo = 0;
    std::size_t lugarVariavel = 0;
    for (std::size_t i = 0; i < colunas.size(); ++i) {
        const std::size_t fixo = tamanhoFixo(colunas[i].tipo);
        const bool deTexto = colunas[i].tipo == TipoJet::Caracteres;
        Texto coluna(formato_.coluna, '\0');
        gravarNumero(coluna, 0, static_cast<std::uint8_t>(colunas[i].tipo), 1);
        gravarNumero(coluna, formato_.numeroDaColuna, i, 2);
        gravarNumero(coluna, formato_.lugarVariavel, lugarVariavel, 2);
        gravarNumero(coluna, formato_.lugarVariavel + 2, i, 2);
        gravarNumero(coluna, lugarDaOrdem, ordem, 2);
        if (formato_.versao == VersaoJet::Jet3) gravarNumero(coluna, lugarDaOrdem + 2, codigoDePagina, 2);
        gravarNumero(coluna, formato_.sinais, podeSerNula | (fixo > 0 ? colunaFixa : 0), 1);
        if (formato_.versao == VersaoJet::Jet4 && deTexto)
            gravarNumero(coluna, formato_.sinais + 1, 1, 1); // compresses
        gravarNumero(coluna, formato_.lugarFixo, lugarFixo, 2);
        gravarNumero(coluna, formato_.tamanhoDaColuna,
                     fixo > 0 ? fixo : colunas[i].tamanho * (deTexto ? formato_.larguraDaContagem : 1), 2);
        lugarFixo += fixo;
        lugarVariavel += fixo > 0 ? 0 : 1;
        descricao += coluna;
    }
    return descricao;
}

/// Lays a definition on its pages: the first is given, each further one starts with the same eight bytes.
void Escritor::escreverDefinicao(Texto descricao, std::uint32_t pagina) {
    constexpr std::size_t lugarDoTamanho = 8;
    gravarNumero(descricao, lugarDoTamanho, descricao.size(), 4);
    while (!descricao.empty()) {
        Texto& bytes = paginas_[pagina];
        const Texto parte = descricao.substr(0, formato_.pagina);
        bytes.replace(0, parte.size(), parte);
        descricao.erase(0, parte.size());
        gravarNumero(bytes, 0, static_cast<std::uint8_t>(PaginaJet::Definicao) | 0x0100, 2);
        if (formato_.versao == VersaoJet::Jet3) {
            bytes.replace(2, 2, "VC");
        } else {
            gravarNumero(bytes, 2, formato_.pagina - std::min(formato_.pagina, parte.size() + lugarJet::continuacao),
                         2);
        }
        if (descricao.empty()) break;
        descricao.insert(0, lugarJet::continuacao, '\0');
        const std::uint32_t proxima = reservar(); // from here on `bytes` may be elsewhere
        gravarNumero(paginas_[pagina], lugarJet::proximaPagina, proxima, 4);
        pagina = proxima;
    }
}

} // namespace

Texto escreverJet(const BancoJet& banco) {
    return Escritor(banco).escrever();
}

} // namespace quilatador

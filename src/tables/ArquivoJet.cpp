#include "tables/ArquivoJet.h"

#include "common/Falha.h"
#include "tables/BytesJet.h"
#include "tables/FalhaDoBanco.h"

#include <algorithm>

namespace quilatador {

namespace {

/// The format of the version that the file claims to have, or null when it is not one that we can read.
const FormatoJet* formatoDe(std::string_view bytes) {
    if (!bytes.starts_with(lugarJet::assinatura) || bytes.size() < jet3.pagina) return nullptr;
    const std::uint32_t versao = numeroJet(bytes, lugarJet::versao, 4);
    for (const FormatoJet* formato : {&jet3, &jet4})
        if (versao == static_cast<std::uint32_t>(formato->versao)) return formato;
    return nullptr;
}

/// Calls `receber` for each page that is marked in a bitmap, whose first bit stands for the page `primeira`.
template <typename Receber>
void percorrerBits(std::string_view bits, std::uint64_t primeira, Receber receber) {
    for (std::size_t i = 0; i < bits.size(); ++i)
        for (unsigned bit = 0, byte = static_cast<unsigned char>(bits[i]); byte != 0; ++bit, byte >>= 1)
            if ((byte & 1u) != 0) receber(primeira + 8 * i + bit);
}

/// The password, which ends at its first NUL. A character that Windows-1252 lacks becomes code 255, which our passwords
/// do not use.
Texto lerSenha(std::string_view bytes, const FormatoJet& formato) {
    Texto senha;
    for (std::size_t i = 0; i < bytes.size(); i += formato.larguraDaContagem) {
        const std::uint32_t ponto = numeroJet(bytes, i, formato.larguraDaContagem);
        if (ponto == 0) break;
        senha.push_back(static_cast<char>(formato.versao == VersaoJet::Jet3 ? static_cast<int>(ponto)
                                                                            : detalhe::codigo1252(ponto)));
    }
    return senha;
}

} // namespace

ArquivoJet::ArquivoJet(std::string bytes) : bytes_(std::move(bytes)), formato_(formatoDe(bytes_)) {
    if (formato_ == nullptr)
        throw Falha(falhaDoBanco::naoReconhecido, "ArquivoJet"_t, "Formato de banco de dados não reconhecido"_t);
    exigirIntegro(bytes_.size() % formato_->pagina == 0);
    paginas_ = static_cast<std::uint32_t>(bytes_.size() / formato_->pagina);
    decifrar();
}

void ArquivoJet::decifrar() {
    const std::span tudo(bytes_);
    const auto cabecalho = tudo.first(formato_->pagina);
    cifrarCabecalhoJet(cabecalho, *formato_);
    mascararSenhaJet(cabecalho, *formato_);
    senha_ = lerSenha(pedacoJet(bytes_, lugarJet::senha, formato_->senha), *formato_);
    const std::uint32_t chave = numeroJet(bytes_, lugarJet::chave, 4);
    for (std::uint32_t n = 1; chave != 0 && n < paginas_; ++n)
        cifrarJet(tudo.subspan(n * formato_->pagina, formato_->pagina), chave ^ n);
}

std::string_view ArquivoJet::pagina(std::uint32_t numero, PaginaJet tipo) const {
    exigirIntegro(numero > 0 && numero < paginas_);
    const auto bytes = std::string_view(bytes_).substr(numero * formato_->pagina, formato_->pagina);
    exigirIntegro(numeroJet(bytes, 0, 1) == static_cast<std::uint32_t>(tipo));
    return bytes;
}

std::size_t ArquivoJet::vagas(std::string_view pagina) const {
    return numeroJet(pagina, formato_->contagemDeLinhas, 2);
}

/// Rows fill a page from its end to its start, and their positions follow the head of the page. So each row ends where
/// the row before it in that list starts.
VagaJet ArquivoJet::vaga(std::string_view pagina, std::size_t qual) const {
    const std::size_t quantas = vagas(pagina);
    exigirIntegro(qual < quantas);
    const std::size_t lugares = formato_->contagemDeLinhas + 2;
    const std::uint32_t sinais = numeroJet(pagina, lugares + 2 * qual, 2);
    const std::size_t inicio = sinais & linhaJet::lugar;
    const std::size_t fim =
        qual == 0 ? pagina.size() : numeroJet(pagina, lugares + 2 * (qual - 1), 2) & linhaJet::lugar;
    exigirIntegro(inicio >= lugares + 2 * quantas && inicio <= fim);
    return {.bytes = pedacoJet(pagina, inicio, fim - inicio),
            .mudada = (sinais & linhaJet::mudada) != 0,
            .escondida = (sinais & linhaJet::escondida) != 0};
}

VagaJet ArquivoJet::vagaEm(std::uint32_t ponteiro) const {
    return vaga(pagina(ponteiro >> 8, PaginaJet::Dados), ponteiro & 0xFF);
}

/// There are two types of map. Type 0 has one bit per page, starting with the page that it names. Type 1 lists pages
/// that contain only such bits, starting with page 0.
std::vector<std::uint32_t> ArquivoJet::paginasDoMapa(std::uint32_t ponteiro) const {
    std::vector<std::uint32_t> paginas;
    const auto guardar = [&](std::uint64_t numero) {
        exigirIntegro(numero < paginas_);
        paginas.push_back(static_cast<std::uint32_t>(numero));
    };
    const std::string_view mapa = vagaEm(ponteiro).bytes;
    const std::uint32_t primeira = numeroJet(mapa, 1, 4);
    const std::uint32_t tipo = numeroJet(mapa, 0, 1);
    exigirIntegro(tipo <= 1);
    if (tipo == 0) percorrerBits(mapa.substr(5), primeira, guardar);
    constexpr std::size_t cabeca = 4; // length of the head of a page of bits
    for (std::size_t i = 0; tipo == 1 && i < (mapa.size() - 1) / 4; ++i) {
        const std::uint32_t numero = numeroJet(mapa, 1 + 4 * i, 4);
        if (numero == 0) continue;
        percorrerBits(pagina(numero, PaginaJet::Mapa).substr(cabeca), i * (formato_->pagina - cabeca) * 8, guardar);
    }
    return paginas;
}

} // namespace quilatador

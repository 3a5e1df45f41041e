#include "layout/ArquivoRemessa.h"

#include "common/Diversos.h"
#include "common/Falha.h"

#include <algorithm>

namespace quilatador {

namespace {

using Traducao = std::pair<int, VistaTexto>;

/// The texts that a user sees for the failures of each operation; others keep the one of the system.
constexpr std::array daAbertura{
    Traducao(numeroDeFalha::nomeDeArquivoInvalido, "Nome de arquivo inválido!"_t),
    Traducao(numeroDeFalha::arquivoNaoEncontrado, "Arquivo não encontrado!"_t),
    Traducao(numeroDeFalha::modoDeArquivoInvalido, "Modo de arquivo inválido!"_t),
    Traducao(numeroDeFalha::arquivoJaAberto, "Arquivo já está aberto!"_t),
};
constexpr std::array daGravacao{
    Traducao(numeroDeFalha::discoCheio, "Disco cheio!"_t),
    Traducao(numeroDeFalha::erroDeDispositivo, "Disco com defeito!"_t),
};

/// Runs an operation on a file and gives its failures their source and, where there is one, their text for the user.
template <typename Operacao>
auto comTraducao(std::span<const Traducao> textos, Operacao operacao) {
    try {
        return operacao();
    } catch (const Falha& falha) {
        const auto texto = std::ranges::find(textos, falha.numero(), &Traducao::first);
        throw Falha(falha.numero(), "Gravacao"_t, texto != textos.end() ? texto->second : falha.descricao());
    }
}

Falha semArquivoAberto() {
    return {daAbertura.front().first, "Gravacao"_t, daAbertura.front().second};
}

} // namespace

ArquivoRemessa::ArquivoRemessa(Arquivos& arquivos, const Relogio& relogio) : arquivos_(arquivos), relogio_(relogio) {}

std::shared_ptr<RegistroRemessa> ArquivoRemessa::criarRegistro(VistaTexto nome) {
    const auto tipo = std::ranges::find_if(tipos_, [&](const auto& t) { return iguaisSemCaixa(t->nome(), nome); });
    if (tipo == tipos_.end())
        throw Falha(numeroDeFalha::argumentoInvalido, "ArquivoRemessa"_t,
                    junta("Registro inexistente no leiaute: "_t, nome));
    auto registro = criarCopias_ ? std::make_shared<RegistroRemessa>((*tipo)->copia()) : *tipo;
    registro->ArquivoRemessa(this);
    return registro;
}

void ArquivoRemessa::addTipoRegistro(std::shared_ptr<RegistroRemessa> registro) {
    if (std::ranges::any_of(tipos_, [&](const auto& t) { return iguaisSemCaixa(t->nome(), registro->nome()); }))
        throw Falha(numeroDeFalha::chaveDuplicada, "ArquivoRemessa"_t,
                    junta("Registro em duplicidade: "_t, registro->nome()));
    registro->ArquivoRemessa(this);
    tipos_.push_back(std::move(registro));
    marcasProntas_ = false;
}

void ArquivoRemessa::abrirArquivoEntrada(const std::filesystem::path& caminho, LeitorDeLinhas::Desistencia desistir) {
    fecharArquivoEntrada();
    leitor_.emplace(comTraducao(daAbertura, [&] { return arquivos_.abrirEntrada(caminho); }), std::move(desistir));
}

void ArquivoRemessa::fecharArquivoEntrada() {
    leitor_.reset();
    const std::unique_ptr<ArquivoSaida> saida = std::move(saida_);
    if (saida) comTraducao(daGravacao, [&] { saida->fechar(); });
}

std::shared_ptr<RegistroRemessa> ArquivoRemessa::lerRegistro(bool lerCampos) {
    avancar(lerCampos);
    return emMaos_ == foraDosTipos_.get() ? foraDosTipos_ : tipos_[tipoEmMaos_];
}

const RegistroRemessa& ArquivoRemessa::avancar(bool lerCampos) {
    if (!leitor_) throw semArquivoAberto();
    const auto comLinha = [&](auto operacao) {
        try {
            return operacao();
        } catch (const Falha& falha) {
            throw falha.comContexto("RegistroRemessa"_t, junta("Linha: "_t, comZeros(contador_, 6)));
        }
    };
    ++contador_;
    const std::optional<VistaTexto> linha = comLinha([&] { return leitor_->proxima(); });
    if (!linha || linha->empty()) {
        --contador_;
        foraDosTipos_ = std::make_shared<RegistroRemessa>();
        return *(emMaos_ = foraDosTipos_.get());
    }
    const auto tipo = reconhecer(*linha);
    if (!tipo) throw semTipo(*linha);
    tipoEmMaos_ = *tipo;
    comLinha([&] {
        if (criarCopias_) foraDosTipos_ = criarRegistro(tipos_[*tipo]->nome());
        emMaos_ = criarCopias_ ? foraDosTipos_.get() : tipos_[*tipo].get();
        if (lerCampos)
            emMaos_->lerLinha(*linha);
        else
            emMaos_->linha(*linha);
    });
    return *emMaos_;
}

const RegistroRemessa* ArquivoRemessa::adotarLinha(VistaTexto linha, std::int64_t lugar) {
    const auto tipo = reconhecer(linha);
    if (!tipo) return nullptr;
    tipos_[*tipo]->linha(linha);
    tipos_[*tipo]->lugar(lugar);
    return tipos_[*tipo].get();
}

std::optional<std::size_t> ArquivoRemessa::reconhecer(VistaTexto linha) {
    if (!marcasProntas_) prepararMarcas();
    std::size_t primeira = 0;
    if (posicaoComum_ > 0) {
        if (linha.size() < posicaoComum_) return std::nullopt;
        primeira = primeiraMarca_[static_cast<unsigned char>(linha[posicaoComum_ - 1])];
        if (marcasDeUmCaractere_)
            return primeira < marcas_.size() ? std::optional(marcas_[primeira].tipo) : std::nullopt;
    }
    for (std::size_t i = primeira; i < marcas_.size(); ++i)
        if (trecho(linha, marcas_[i].posicao, marcas_[i].tamanho) == marcas_[i].texto) return marcas_[i].tipo;
    return std::nullopt;
}

/// The field at fault is the one that identifies the record types, if it has the same place in all of them.
FalhaDeLeitura ArquivoRemessa::semTipo(VistaTexto linha) const {
    std::optional<CampoDoAchado> campo;
    if (posicaoComum_ > 0) {
        const Marca& marca = marcas_.front();
        campo = CampoDoAchado{.nome = tipos_[marca.tipo]->identificador(),
                              .inicio = static_cast<int>(marca.posicao),
                              .fim = static_cast<int>(marca.posicao + marca.tamanho) - 1,
                              .encontrado = Texto(trecho(linha, marca.posicao, marca.tamanho)),
                              .esperado = {}};
    }
    const Falha causa(numeroDeFalha::geral, "ArquivoRemessa"_t, "Tipo de registro não identificado!"_t);
    return FalhaDeLeitura("leitura.tipo"_t, causa, std::move(campo)).em(contador_, '\0');
}

/// Prepares once what `RegistroRemessa::isRegistroTipo` would have to look up for every record type and line.
void ArquivoRemessa::prepararMarcas() {
    marcas_.clear();
    for (std::size_t i = 0; i < tipos_.size(); ++i) {
        const CampoRemessa& campo = tipos_[i]->obterCampo(tipos_[i]->identificador());
        const int tamanho = std::max(campo.Fim() - campo.inicio() + 1, 0);
        if (!campo.Valor().nulo())
            marcas_.push_back({static_cast<std::size_t>(campo.inicio()), static_cast<std::size_t>(tamanho),
                               campo.Valor().texto(), i});
    }
    const auto mesmaPosicao = [&](const Marca& m) { return m.posicao == marcas_.front().posicao && !m.texto.empty(); };
    posicaoComum_ = !marcas_.empty() && std::ranges::all_of(marcas_, mesmaPosicao) ? marcas_.front().posicao : 0;
    marcasDeUmCaractere_ =
        std::ranges::all_of(marcas_, [](const Marca& m) { return m.tamanho == 1 && m.texto.size() == 1; });
    primeiraMarca_.fill(static_cast<std::uint16_t>(marcas_.size()));
    for (std::size_t i = marcas_.size(); posicaoComum_ > 0 && i-- > 0;)
        primeiraMarca_[static_cast<unsigned char>(marcas_[i].texto.front())] = static_cast<std::uint16_t>(i);
    marcasProntas_ = true;
}

void ArquivoRemessa::abrirArquivoSaida(const std::filesystem::path& caminho) {
    fecharArquivoSaida();
    saida_ = comTraducao(daAbertura, [&] { return arquivos_.criarSaida(caminho); });
}

void ArquivoRemessa::addRegistro(RegistroRemessa& registro) {
    ++contador_;
    const Texto linha = junta(Diversos::ConverteASC2EBCDIC(registro.gerarLinha()), "\r\n"_t);
    if (!saida_) throw semArquivoAberto();
    comTraducao(daGravacao, [&] { saida_->escrever(bytesDoTexto(linha)); });
}

void ArquivoRemessa::addRegistros(std::span<RegistroRemessa*> registros) {
    for (RegistroRemessa* registro : registros)
        addRegistro(*registro);
}

} // namespace quilatador

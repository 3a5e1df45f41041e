#include "layout/ArquivoRemessa.h"

#include "common/Diversos.h"
#include "common/Falha.h"

#include <algorithm>

namespace quilatador {

namespace {

/// Rewrites a file failure for the user: the known conditions have fixed texts.
Falha falhaDeArquivo(const Falha& falha) {
    const auto descricao = [&]() -> VistaTexto {
        switch (falha.numero()) {
        case numeroDeFalha::nomeDeArquivoInvalido:
            return "Nome de arquivo inválido!"_t;
        case numeroDeFalha::arquivoNaoEncontrado:
            return "Arquivo não encontrado!"_t;
        case numeroDeFalha::modoDeArquivoInvalido:
            return "Modo de arquivo inválido!"_t;
        case numeroDeFalha::arquivoJaAberto:
            return "Arquivo já está aberto!"_t;
        case numeroDeFalha::discoCheio:
            return "Disco cheio!"_t;
        case numeroDeFalha::erroDeDispositivo:
            return "Disco com defeito!"_t;
        default:
            return falha.descricao();
        }
    };
    return {falha.numero(), "Gravacao"_t, descricao()};
}

/// Runs an operation on a file and rewrites its failures with `falhaDeArquivo`.
template <typename Operacao>
auto comTraducao(Operacao operacao) {
    try {
        return operacao();
    } catch (const Falha& falha) {
        throw falhaDeArquivo(falha);
    }
}

} // namespace

ArquivoRemessa::ArquivoRemessa(Arquivos& arquivos) : arquivos_(arquivos) {}

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
    saida_.reset();
    leitor_.reset();
    leitor_.emplace(comTraducao([&] { return arquivos_.abrirEntrada(caminho); }), std::move(desistir));
}

RegistroRemessa& ArquivoRemessa::lerRegistro(bool lerCampos) {
    if (!leitor_) throw falhaDeArquivo(Falha(numeroDeFalha::nomeDeArquivoInvalido, "ArquivoRemessa"_t, {}));
    const auto comLinha = [&](const Falha& falha) {
        return falha.comContexto("RegistroRemessa"_t, junta("Linha: "_t, comZeros(contador_, 6)));
    };
    ++contador_;
    std::optional<VistaTexto> linha;
    try {
        linha = leitor_->proxima();
    } catch (const Falha& falha) {
        throw comLinha(falha);
    }
    if (!linha || linha->empty()) {
        --contador_;
        return semRegistro();
    }
    const auto tipo = reconhecer(*linha);
    if (!tipo) throw semTipo(*linha);
    tipoEmMaos_ = *tipo;
    if (criarCopias_) copiaEmMaos_ = criarRegistro(tipos_[*tipo]->nome());
    emMaos_ = criarCopias_ ? copiaEmMaos_.get() : tipos_[*tipo].get();
    try {
        if (lerCampos)
            emMaos_->lerLinha(*linha);
        else
            emMaos_->linha(*linha);
    } catch (const Falha& falha) {
        throw comLinha(falha);
    }
    return *emMaos_;
}

RegistroRemessa& ArquivoRemessa::semRegistro() {
    vazio_ = RegistroRemessa();
    emMaos_ = &vazio_;
    return vazio_;
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
    leitor_.reset();
    saida_.reset();
    saida_ = comTraducao([&] { return arquivos_.criarSaida(caminho); });
}

void ArquivoRemessa::fecharArquivoSaida() {
    if (saida_) comTraducao([&] { saida_->fechar(); });
    saida_.reset();
}

void ArquivoRemessa::addRegistro(RegistroRemessa& registro) {
    ++contador_;
    const Texto linha = junta(Diversos::ConverteASC2EBCDIC(registro.gerarLinha()), "\r\n"_t);
    if (!saida_) throw falhaDeArquivo(Falha(numeroDeFalha::nomeDeArquivoInvalido, "ArquivoRemessa"_t, {}));
    comTraducao([&] { saida_->escrever(bytesDoTexto(linha)); });
}

void ArquivoRemessa::addRegistros(std::span<RegistroRemessa*> registros) {
    for (RegistroRemessa* registro : registros)
        addRegistro(*registro);
}

} // namespace quilatador

#include "layout/LeitorDeLinhas.h"

#include <algorithm>
#include <cstring>

namespace quilatador {

namespace {

constexpr std::size_t tamanhoDoBloco = 256 * 1024;
constexpr char fimDeArquivo = 0x1A;

constexpr bool terminaLinha(char c) noexcept {
    return c == '\r' || c == '\n' || c == fimDeArquivo;
}

/// Whether no character is a control code that could end a line. Without a branch in the loop, so that the compiler
/// takes many characters at a time.
bool semControles(const char* texto, std::size_t tamanho) noexcept {
    unsigned char menor = 0xFF;
    for (std::size_t i = 0; i < tamanho; ++i)
        menor = std::min(menor, static_cast<unsigned char>(texto[i]));
    return menor > fimDeArquivo;
}

} // namespace

LeitorDeLinhas::LeitorDeLinhas(std::unique_ptr<ArquivoEntrada> arquivo)
    : arquivo_(std::move(arquivo)), bloco_(tamanhoDoBloco) {}

std::optional<VistaTexto> LeitorDeLinhas::proxima() {
    if (comoAAnterior()) {
        const VistaTexto linha(bloco_.data() + inicio_, tamanhoAnterior_);
        inicio_ += tamanhoAnterior_ + 2;
        return linha;
    }
    if (saltarLF_ && (inicio_ < fim_ || encher())) {
        if (bloco_[inicio_] == '\n') ++inicio_;
        saltarLF_ = false;
    }
    for (std::size_t visto = 0;;) {
        const auto comeco = bloco_.begin() + static_cast<std::ptrdiff_t>(inicio_ + visto);
        const auto limite = bloco_.begin() + static_cast<std::ptrdiff_t>(fim_);
        const auto termo = std::find_if(comeco, limite, terminaLinha);
        if (termo != limite) return terminarEm(static_cast<std::size_t>(termo - bloco_.begin()));
        visto = fim_ - inicio_;
        if (visto >= maiorLinha) {
            const VistaTexto linha(bloco_.data(), maiorLinha);
            std::memmove(bloco_.data(), bloco_.data() + inicio_, maiorLinha);
            saltarResto();
            return linha;
        }
        if (!encher()) {
            if (visto == 0) return std::nullopt;
            inicio_ = fim_;
            return VistaTexto(bloco_.data() + fim_ - visto, visto);
        }
    }
}

/// The usual case, decided without looking for the line's end: the next line is as long as the one before.
bool LeitorDeLinhas::comoAAnterior() const noexcept {
    if (saltarLF_ || tamanhoAnterior_ == 0 || fim_ - inicio_ < tamanhoAnterior_ + 2) return false;
    const char* linha = bloco_.data() + inicio_;
    return linha[tamanhoAnterior_] == '\r' && linha[tamanhoAnterior_ + 1] == '\n' &&
           semControles(linha, tamanhoAnterior_);
}

/// Reads more behind the bytes not yet given out, which move to the start of the block. False at the end of the file.
bool LeitorDeLinhas::encher() {
    if (acabou_) return false;
    std::memmove(bloco_.data(), bloco_.data() + inicio_, fim_ - inicio_);
    fim_ -= inicio_;
    inicio_ = 0;
    const std::size_t lidos = arquivo_->ler(std::span(bloco_).subspan(fim_));
    acabou_ = lidos == 0;
    fim_ += lidos;
    return !acabou_;
}

/// Drops what is left of a line too long, its end included; the part that is given out stays at the block's start.
void LeitorDeLinhas::saltarResto() {
    const auto resto = std::span(bloco_).subspan(maiorLinha);
    inicio_ += maiorLinha;
    for (;;) {
        const auto comeco = bloco_.begin() + static_cast<std::ptrdiff_t>(inicio_);
        const auto limite = bloco_.begin() + static_cast<std::ptrdiff_t>(fim_);
        const auto termo = std::find_if(comeco, limite, terminaLinha);
        if (termo != limite) {
            terminarEm(static_cast<std::size_t>(termo - bloco_.begin()));
            return;
        }
        const std::size_t lidos = acabou_ ? 0 : arquivo_->ler(resto);
        inicio_ = maiorLinha;
        fim_ = maiorLinha + lidos;
        acabou_ = lidos == 0;
        if (acabou_) return;
    }
}

/// Gives out the line up to an end mark, cut where it is too long, and takes the mark away.
std::optional<VistaTexto> LeitorDeLinhas::terminarEm(std::size_t fimDaLinha) {
    const VistaTexto linha(bloco_.data() + inicio_, std::min(fimDaLinha - inicio_, maiorLinha));
    const char marca = bloco_[fimDaLinha];
    inicio_ = fimDaLinha + 1;
    tamanhoAnterior_ = linha.size();
    saltarLF_ = marca == '\r';
    if (saltarLF_ && inicio_ < fim_) {
        if (bloco_[inicio_] == '\n') ++inicio_;
        saltarLF_ = false;
    }
    if (marca == fimDeArquivo) {
        acabou_ = true;
        inicio_ = fim_;
        if (linha.empty()) return std::nullopt;
    }
    return linha;
}

} // namespace quilatador

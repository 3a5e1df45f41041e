#include "common/LeitorDeLinhas.h"

#include <algorithm>
#include <cstring>

namespace quilatador {

namespace {

constexpr std::size_t tamanhoDoBloco = 256 * 1024;
/// The place in memory where blocks are read to. The space in front of it takes the start of a line whose end comes
/// with the next block.
constexpr std::size_t lugarDoBloco = LeitorDeLinhas::maiorLinha;
static_assert(lugarDoBloco % tamanhoDaPagina == 0 && tamanhoDoBloco % tamanhoDaPagina == 0);
constexpr char fimDeArquivo = 0x1A;

constexpr bool terminaLinha(char c) noexcept {
    return c == '\r' || c == '\n' || c == fimDeArquivo;
}

/// Whether the text has no control code that could end a line. The loop has no branch, so that the compiler can process
/// many characters at a time.
bool semControles(const char* texto, std::size_t tamanho) noexcept {
    unsigned char menor = 0xFF;
    for (std::size_t i = 0; i < tamanho; ++i)
        menor = std::min(menor, static_cast<unsigned char>(texto[i]));
    return menor > fimDeArquivo;
}

} // namespace

LeitorDeLinhas::LeitorDeLinhas(std::unique_ptr<ArquivoEntrada> arquivo, Desistencia desistir)
    : arquivo_(std::move(arquivo))
    , desistir_(std::move(desistir))
    , bloco_(reservarMemoria(lugarDoBloco + tamanhoDoBloco)) {}

std::optional<VistaTexto> LeitorDeLinhas::proxima() {
    if (cortada_) saltarResto();
    if (comoAAnterior()) {
        const VistaTexto linha(bloco_.get() + inicio_, tamanhoAnterior_);
        inicio_ += tamanhoAnterior_ + 2;
        return linha;
    }
    if (saltarLF_ && (inicio_ < fim_ || encher())) {
        if (bloco_[inicio_] == '\n') ++inicio_;
        saltarLF_ = false;
    }
    for (std::size_t visto = 0;;) {
        const std::size_t fimDaLinha = procurarFim(inicio_ + visto);
        if (fimDaLinha != fim_) return terminarEm(fimDaLinha);
        visto = fim_ - inicio_;
        if (visto >= maiorLinha) return cortar();
        if (!encher()) {
            if (visto == 0) return std::nullopt;
            inicio_ = fim_;
            return VistaTexto(bloco_.get() + fim_ - visto, visto);
        }
    }
}

/// Recognizes the usual case without searching for the end of the line: the next line is as long as the one before.
bool LeitorDeLinhas::comoAAnterior() const noexcept {
    if (saltarLF_ || tamanhoAnterior_ == 0 || fim_ - inicio_ < tamanhoAnterior_ + 2) return false;
    const char* linha = bloco_.get() + inicio_;
    return linha[tamanhoAnterior_] == '\r' && linha[tamanhoAnterior_ + 1] == '\n' &&
           semControles(linha, tamanhoAnterior_);
}

/// The place of the next end mark, or `fim_` when none has been read yet.
std::size_t LeitorDeLinhas::procurarFim(std::size_t desde) const noexcept {
    return static_cast<std::size_t>(std::find_if(bloco_.get() + desde, bloco_.get() + fim_, terminaLinha) -
                                    bloco_.get());
}

/// Appends the next block to the bytes that have not been returned yet, which are fewer than `maiorLinha`. Returns
/// false at the end of the file.
bool LeitorDeLinhas::encher() {
    if (acabou_) return false;
    const std::size_t restam = fim_ - inicio_;
    std::memmove(bloco_.get() + lugarDoBloco - restam, bloco_.get() + inicio_, restam);
    inicio_ = lugarDoBloco - restam;
    const std::size_t lidos = lerBloco();
    fim_ = lugarDoBloco + lidos;
    acabou_ = lidos == 0;
    return !acabou_;
}

std::size_t LeitorDeLinhas::lerBloco() {
    return arquivo_->ler({bloco_.get() + lugarDoBloco, tamanhoDoBloco});
}

/// Returns the part of a line that is too long, and leaves the rest for later: whoever finds fault with the part never
/// waits for a rest that may not end.
VistaTexto LeitorDeLinhas::cortar() {
    const VistaTexto linha(bloco_.get() + inicio_, maiorLinha);
    inicio_ += maiorLinha;
    cortada_ = true;
    return linha;
}

/// Skips the rest of a line that is too long, with its end mark.
void LeitorDeLinhas::saltarResto() {
    cortada_ = false;
    for (;;) {
        const std::size_t fimDaLinha = procurarFim(inicio_);
        if (fimDaLinha != fim_) {
            terminarEm(fimDaLinha);
            return;
        }
        const bool parar = acabou_ || (desistir_ && desistir_());
        const std::size_t lidos = parar ? 0 : lerBloco();
        inicio_ = lugarDoBloco;
        fim_ = lugarDoBloco + lidos;
        acabou_ = lidos == 0;
        if (acabou_) return;
    }
}

/// Returns the line up to an end mark, cut when it is too long, and moves past the mark.
std::optional<VistaTexto> LeitorDeLinhas::terminarEm(std::size_t fimDaLinha) {
    const VistaTexto linha(bloco_.get() + inicio_, std::min(fimDaLinha - inicio_, maiorLinha));
    const char marca = bloco_[fimDaLinha];
    inicio_ = fimDaLinha + 1;
    tamanhoAnterior_ = linha.size();
    saltarLF_ = marca == '\r';
    if (saltarLF_ && inicio_ < fim_) {
        if (bloco_[inicio_] == '\n') ++inicio_;
        saltarLF_ = false;
    }
    if (marca == fimDeArquivo) {
        terminouEmCtrlZ_ = true;
        acabou_ = true;
        inicio_ = fim_;
        if (linha.empty()) return std::nullopt;
    }
    return linha;
}

} // namespace quilatador

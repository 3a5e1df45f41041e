#pragma once

#include "common/Arquivos.h"
#include "common/Bloco.h"
#include "common/Falha.h"
#include "run/Relator.h"

#include <memory>

namespace quilatador {

/// The log could not be written: nothing can be said there, so the user is told in another way.
class FalhaDoLog : public Falha {
    using Falha::Falha;
};

/// The log file: Windows-1252, each line ended by CR LF whatever the platform, written in large blocks. A failed
/// write raises `FalhaDoLog` at the line that filled the block, or at `fechar`; what is destroyed unclosed reports
/// nothing.
class RelatorLog : public Relator {
  public:
    explicit RelatorLog(std::unique_ptr<ArquivoSaida> arquivo);

    void linha(VistaTexto texto) override;
    /// An error is "** ERRO -> Linha " + line in six digits + " - " + message; a structural finding its plain message.
    void achado(const Achado& achado) override;

    /// Begins and ends a stroke of whole lines, with their CR LF, for whoever writes very many: see `Bloco`.
    [[nodiscard]] Bloco::Caneta comecar(std::size_t bytes) { return pendente_.comecar(bytes); }
    void terminar(const Bloco::Caneta& caneta) {
        pendente_.terminar(caneta);
        if (pendente_.texto().size() >= bloco) gravarBlocos();
    }
    /// Writes what is waiting and closes the file.
    void fechar();

  private:
    /// So much is written at once, always whole pages: the system's cost of a write falls with its size, up to here.
    static constexpr std::size_t bloco = 1024 * 1024;

    template <typename... Pedacos>
    void escrever(const Pedacos&... pedacosDaLinha);
    void gravarBlocos();
    template <typename Operacao>
    void gravar(Operacao operacao);

    std::unique_ptr<ArquivoSaida> arquivo_;
    Bloco pendente_;
};

} // namespace quilatador

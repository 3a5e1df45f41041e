#pragma once

#include "common/Arquivos.h"
#include "common/Bloco.h"
#include "common/Falha.h"
#include "run/Relator.h"

#include <memory>

namespace quilatador {

/// The log could not be written. Since the log cannot report this, the user is told in a message box.
class FalhaDoLog : public Falha {
    using Falha::Falha;
};

/// Writes the log file: Windows-1252, every line ended by CR LF on every platform, collected into large blocks. A write
/// that fails raises `FalhaDoLog` at the line that filled the block or in `fechar`. The destructor closes the file
/// without writing what is still waiting, so always call `fechar`.
class RelatorLog : public Relator {
  public:
    explicit RelatorLog(std::unique_ptr<ArquivoSaida> arquivo);

    void linha(VistaTexto texto) override;
    /// An error becomes "** ERRO -> Linha ", the line number in six digits, " - " and the message. Any other finding
    /// becomes its message alone.
    void achado(const Achado& achado) override;

    /// A fast way to write very many lines: reserve room with `comecar`, append whole lines with their CR LF, and call
    /// `terminar`. See `Bloco`.
    [[nodiscard]] Bloco::Caneta comecar(std::size_t bytes) { return pendente_.comecar(bytes); }
    void terminar(const Bloco::Caneta& caneta) {
        pendente_.terminar(caneta);
        if (pendente_.texto().size() >= bloco) gravarBlocos();
    }
    /// Writes what is still waiting and closes the file. Raises `FalhaDoLog` when either fails.
    void fechar();

  private:
    /// The number of bytes written at once. It is a multiple of the page size, and large because writing more at once
    /// costs the system less per byte; beyond this size nothing more is gained.
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

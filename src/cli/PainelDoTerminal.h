#pragma once

#include "run/Painel.h"
#include "run/Relogio.h"

#include <functional>
#include <optional>
#include <ostream>

namespace quilatador {

/// The display of the command line. It writes messages and progress to a stream, in UTF-8. Progress is for a person who
/// watches (`comProgresso`): one line, drawn again at most ten times a second.
class PainelDoTerminal : public Painel {
  public:
    struct Opcoes {
        bool comProgresso = false;
        int largura = 80;                ///< of the terminal, in characters
        std::optional<double> primeiras; ///< number of slips to analyse; empty for all
        std::function<void()> aoAtender; ///< called once per line, where a window would handle its events
    };

    PainelDoTerminal(std::ostream& saida, const Relogio& relogio, Opcoes opcoes);

    void iniciarProgresso(const Progresso& progresso) override;
    void avancar(const Progresso& progresso) override;
    void concluirProgresso(const Progresso& progresso) override;
    void processarEventos() override;
    void mensagem(const Mensagem& mensagem) override;
    [[nodiscard]] std::optional<double> primeirasGuias() const override { return opcoes_.primeiras; }
    /// Takes the progress away, so that something else can be written where it stands. It comes again by itself.
    void apagar();

  private:
    void desenhar(const Progresso& progresso, Relogio::Instante agora);

    std::ostream& saida_;
    const Relogio& relogio_;
    Opcoes opcoes_;
    Relogio::Instante ultimoDesenho_{};
    bool desenhado_ = false;
};

} // namespace quilatador

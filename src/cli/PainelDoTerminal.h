#pragma once

#include "run/Painel.h"
#include "run/Relogio.h"

#include <functional>
#include <optional>
#include <ostream>

namespace quilatador {

/// The display of the command line: problems and progress go to a stream as UTF-8, progress only where a person
/// watches, on one line that is drawn again at most ten times a second.
class PainelDoTerminal : public Painel {
  public:
    struct Opcoes {
        bool comProgresso = false;
        int largura = 80; ///< characters of a line
        std::optional<double> primeiras;
        std::function<void()> aoAtender; ///< called where waiting events are handled, once per line
    };

    PainelDoTerminal(std::ostream& saida, const Relogio& relogio, Opcoes opcoes);

    void iniciarProgresso(const Progresso& progresso) override;
    void avancar(const Progresso& progresso) override;
    void concluirProgresso(const Progresso& progresso) override;
    void processarEventos() override;
    void mensagem(const Mensagem& mensagem) override;
    [[nodiscard]] std::optional<double> primeirasGuias() const override { return opcoes_.primeiras; }

  private:
    void desenhar(const Progresso& progresso, Relogio::Instante agora);
    void apagar();

    std::ostream& saida_;
    const Relogio& relogio_;
    Opcoes opcoes_;
    Relogio::Instante ultimoDesenho_{};
    bool desenhado_ = false;
};

/// A text as a terminal may get it: UTF-8, its control characters (below 20 and 7F to 9F hex) written as "\xNN".
[[nodiscard]] std::string paraTerminal(VistaTexto texto);

} // namespace quilatador

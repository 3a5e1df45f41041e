#pragma once

#include "common/Texto.h"
#include "run/Progresso.h"

#include <optional>

namespace quilatador {

/// Labels that a run sets.
enum class Rotulo { Operacao, Empresa, Remessa };

/// A message box. All have an OK button only.
struct Mensagem {
    enum class Icone { Nenhum, Exclamacao };
    /// Whether it tells of a problem or only that something is over.
    enum class Assunto { Problema, Aviso };

    Texto texto;
    Texto titulo;
    Icone icone = Icone::Nenhum;
    Assunto assunto = Assunto::Problema;
};

inline constexpr VistaTexto tituloDoPrograma = "Solvara - Quilatador de Leiaute"_t;
inline constexpr VistaTexto tituloDeErro = "Solvara - Quilatador de Leiaute - Erro!"_t;
/// What an analysis says, in place of its end, where the system has no more memory for it.
inline constexpr VistaTexto memoriaInsuficiente = "Memória insuficiente!"_t;
/// What an analysis says, in place of its end, of a file that somebody changed meanwhile.
inline constexpr VistaTexto arquivoAlterado = "O arquivo foi alterado durante a análise!"_t;

/// What a run needs of a display. It is called from the run's own thread.
class Painel {
  public:
    virtual ~Painel() = default;

    /// Shows a text in a label; a display without labels shows none, since the log says the same.
    virtual void rotulo(Rotulo /*qual*/, VistaTexto /*texto*/) {}
    /// A phase begins: `progresso.totalRegistros` records are foreseen. Its times read "00:00:00".
    virtual void iniciarProgresso(const Progresso& progresso) = 0;
    /// Once per line. The display handles its waiting events here, so that a cancel request can come in.
    virtual void avancar(const Progresso& progresso) = 0;
    /// A phase ended: what was shown last may be behind `progresso`, which is final.
    virtual void concluirProgresso(const Progresso& progresso) = 0;
    /// Lets waiting events run.
    virtual void processarEventos() = 0;
    /// Shows a message box and waits until it is closed.
    virtual void mensagem(const Mensagem& mensagem) = 0;
    /// How many slips ("guias") the user wants checked, read anew at each slip; none for all of them.
    [[nodiscard]] virtual std::optional<double> primeirasGuias() const = 0;
};

} // namespace quilatador

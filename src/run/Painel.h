#pragma once

#include "common/Texto.h"
#include "run/Progresso.h"

#include <filesystem>
#include <optional>

namespace quilatador {

/// The labels that a run fills.
enum class Rotulo { Operacao, Empresa, Remessa };

/// A message box. It has only an OK button.
struct Mensagem {
    enum class Icone { Nenhum, Exclamacao };
    /// Whether the message reports a problem or only that something is finished.
    enum class Assunto { Problema, Aviso };

    Texto texto;
    Texto titulo;
    Icone icone = Icone::Nenhum;
    Assunto assunto = Assunto::Problema;
};

inline constexpr VistaTexto tituloDoPrograma = "Solvara - Quilatador de Leiaute"_t;
inline constexpr VistaTexto tituloDeErro = "Solvara - Quilatador de Leiaute - Erro!"_t;
/// The message that replaces the end of an analysis when the system has no memory left.
inline constexpr VistaTexto memoriaInsuficiente = "Memória insuficiente!"_t;
/// The message that replaces the end of an analysis when somebody changed the file meanwhile.
inline constexpr VistaTexto arquivoAlterado = "O arquivo foi alterado durante a análise!"_t;

/// The display of a run: labels, progress and message boxes. All functions are called on the thread of the run.
class Painel {
  public:
    virtual ~Painel() = default;

    /// Shows a text in a label. A display without labels need not override it, since the log says the same.
    virtual void rotulo(Rotulo /*qual*/, VistaTexto /*texto*/) {}
    /// A phase begins, in which `progresso.totalRegistros` records are expected. Both times are shown as "00:00:00".
    virtual void iniciarProgresso(const Progresso& progresso) = 0;
    /// Called once per line. The display also handles its waiting events here, so that the user can cancel.
    virtual void avancar(const Progresso& progresso) = 0;
    /// A phase has ended. `progresso` is final, and the display may still show an older state.
    virtual void concluirProgresso(const Progresso& progresso) = 0;
    /// Lets the display handle its waiting events.
    virtual void processarEventos() = 0;
    /// Shows a message box and waits until the user closes it.
    virtual void mensagem(const Mensagem& mensagem) = 0;
    /// The log cannot be written to `recusado`, and `recusa` says why. Shows that message and returns the place that
    /// the user chooses instead, which is checked like the first and may be refused as well; nothing to give up. A
    /// display that offers no choice need not override it.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    outroLugarParaOLog(const Mensagem& recusa, const std::filesystem::path& /*recusado*/) {
        mensagem(recusa);
        return std::nullopt;
    }
    /// How many slips ("guias") the user wants to have checked; nothing means all. It is asked again for each slip.
    [[nodiscard]] virtual std::optional<double> primeirasGuias() const = 0;
};

} // namespace quilatador

#pragma once

#include "common/Arquivos.h"
#include "common/Falha.h"
#include "layout/ArquivoRemessa.h"
#include "run/Ambiente.h"

#include <filesystem>
#include <memory>

namespace quilatador {

/// A failure about which the user has already seen a message box when it is raised.
class FalhaMostrada : public Falha {
    using Falha::Falha;
};

/// Loads a layout from its XML description. Below the root "ArquivoRemessa" stand the record types ("Nome", "Tamanho",
/// "Identificador"), and in them the fields in line order ("Nome", "Tipo", "Alinhamento", "Tamanho", "Formato",
/// "Decimais", "Valor"; only "Alinhamento" and "Valor" are optional).
///
/// An XML declaration must come first, and the two levels below the root must contain elements only. To keep untrusted
/// input harmless, a description has at most 1 MiB, 16 levels, one root and no DOCTYPE. A field may be 0 characters
/// wide or lie beyond the record's "Tamanho", but not beyond position 32767.
class ArquivoRemessaBD {
  public:
    /// Returns the layout, or null after a message box when the file does not exist. Raises `Falha` 1 when the file is
    /// not XML or a record or field is wrong (the text names the place), 457 for two record types with one name, and
    /// the failures of `Arquivos`. Another root element raises `FalhaMostrada` after a message box. `arquivos` and
    /// `relogio` must outlive the layout.
    [[nodiscard]] static std::unique_ptr<ArquivoRemessa> obterArquivoRemessa(const std::filesystem::path& caminho,
                                                                             Arquivos& arquivos, Painel& painel,
                                                                             const Relogio& relogio);
    /// The layout of the remittances, from the program's folder. Null after a message box that says why it could not be
    /// loaded; it never fails. What the surroundings refer to must outlive the layout.
    [[nodiscard]] static std::unique_ptr<ArquivoRemessa> carregar(const Ambiente& ambiente);
};

} // namespace quilatador

#pragma once

#include "common/Arquivos.h"
#include "common/Falha.h"
#include "layout/ArquivoRemessa.h"
#include "run/Painel.h"

#include <filesystem>
#include <memory>

namespace quilatador {

/// A failure that the user has been told of when it is raised.
class FalhaMostrada : public Falha {
    using Falha::Falha;
};

/// Loads a layout from its XML description: the declaration, then the root "ArquivoRemessa"; its children are the
/// record types (attributes "Nome", "Tamanho", "Identificador"), theirs the fields in line order ("Nome", "Tipo",
/// "Alinhamento", "Tamanho", "Formato", "Decimais", "Valor"; the third and the last may be missing). Nothing but
/// elements may stand at these two levels. The description is input like any other: at most 1 MiB and 16 levels, one
/// root, no DOCTYPE, and so no entities but XML's own.
class ArquivoRemessaBD {
  public:
    /// The layout; none, after a message box, where the file is missing. `Falha` where it is no XML, its root is
    /// another (`FalhaMostrada`: a message box says so first) or a record or field is not right: the text names record,
    /// field and attribute.
    [[nodiscard]] static std::unique_ptr<ArquivoRemessa> obterArquivoRemessa(const std::filesystem::path& caminho,
                                                                             Arquivos& arquivos, Painel& painel);
};

} // namespace quilatador

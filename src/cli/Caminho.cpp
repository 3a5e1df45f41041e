#include "cli/Caminho.h"

#include <system_error>

namespace quilatador {

namespace {

using std::filesystem::path;

bool ehLink(const path& caminho) {
    std::error_code erro;
    return std::filesystem::is_symlink(caminho, erro);
}

/// Appends one part to a path that is already in order.
void acrescentar(path& caminho, const path& parte) {
    const bool sobe = parte == "..";
    if (sobe && !caminho.has_relative_path()) return; // nothing is above the root
    if (sobe && caminho.filename() != ".." && !ehLink(caminho))
        caminho = caminho.parent_path();
    else if (!parte.empty() && parte != ".")
        caminho /= parte;
}

} // namespace

path caminhoCompleto(const path& caminho) {
    std::error_code erro;
    const path absoluto = std::filesystem::absolute(caminho, erro);
    if (erro || caminho.empty()) return caminho;
    path completo = absoluto.root_path();
    for (const path& parte : absoluto.relative_path())
        acrescentar(completo, parte);
    const path ultima = absoluto.filename();
    const bool ehPasta = ultima.empty() || ultima == "." || ultima == "..";
    return ehPasta ? completo / "" : completo; // as `lexically_normal` ends the name of a folder
}

} // namespace quilatador

#include "run/NomesDeArquivo.h"

namespace quilatador {

std::filesystem::path caminhoDoLog(const std::filesystem::path& arquivo, TipoArquivo tipo) {
    const char* const sufixoSemPonto = tipo == TipoArquivo::ZUL702 ? "log" : ".log";
    const auto& nome = arquivo.native();
    const std::size_t ponto = nome.find(static_cast<std::filesystem::path::value_type>('.'));
    const bool temPonto = ponto != std::filesystem::path::string_type::npos;
    std::filesystem::path caminho(temPonto ? nome.substr(0, ponto + 1) : nome);
    caminho += temPonto ? "log" : sufixoSemPonto;
    return caminho;
}

std::filesystem::path caminhoDoLogNaPasta(const std::filesystem::path& arquivo, const std::filesystem::path& pasta) {
    return (pasta / arquivo.filename()) += ".log";
}

Texto tituloDoLog(const std::filesystem::path& arquivo, VistaTexto hoje) {
    return junta("LOG DE DEPURAÇÃO DO ARQUIVO "_t, textoDoCaminho(arquivo), "  -   "_t, hoje);
}

} // namespace quilatador

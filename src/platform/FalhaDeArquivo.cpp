#include "platform/FalhaDeArquivo.h"

#include <cerrno>

namespace quilatador {

namespace {

int numeroDoErro(int erro) noexcept {
    switch (erro) {
    case EINVAL:
    case EILSEQ:
    case ENAMETOOLONG:
        return numeroDeFalha::nomeDeArquivoInvalido;
    case ENOENT:
    case ENOTDIR:
        return numeroDeFalha::arquivoNaoEncontrado;
    case EAGAIN: // another program holds a lease on the file that is opened
    case EBUSY:
    case ETXTBSY:
        return numeroDeFalha::arquivoJaAberto;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return numeroDeFalha::discoCheio;
    case EACCES:
    case EPERM:
    case EROFS:
        return numeroDeFalha::permissaoNegada;
    case EISDIR:
    case ELOOP:
    case ENXIO: // a socket, or a pipe without a reader
        return numeroDeFalha::acessoAoCaminho;
    default:
        return numeroDeFalha::erroDeDispositivo;
    }
}

VistaTexto descricaoDoNumero(int numero) noexcept {
    switch (numero) {
    case numeroDeFalha::nomeDeArquivoInvalido:
        return "Nome de arquivo inválido"_t;
    case numeroDeFalha::arquivoNaoEncontrado:
        return "Arquivo não encontrado"_t;
    case numeroDeFalha::arquivoJaAberto:
        return "Arquivo já está aberto"_t;
    case numeroDeFalha::discoCheio:
        return "Disco cheio"_t;
    case numeroDeFalha::permissaoNegada:
        return "Permissão negada"_t;
    case numeroDeFalha::acessoAoCaminho:
        return "Erro de acesso ao caminho/arquivo"_t;
    default:
        return "Erro de E/S do dispositivo"_t;
    }
}

} // namespace

Falha falhaDeArquivo(int erro) {
    const int numero = numeroDoErro(erro);
    return {numero, "Gravacao"_t, descricaoDoNumero(numero)};
}

Falha falhaDeTransferencia(int erro) {
    return falhaDeArquivo(numeroDoErro(erro) == numeroDeFalha::discoCheio ? erro : EIO);
}

bool nomePossivel(const std::filesystem::path& caminho) noexcept {
    const auto& nome = caminho.native();
    return !nome.empty() && nome.find(std::filesystem::path::value_type{}) == std::filesystem::path::string_type::npos;
}

} // namespace quilatador

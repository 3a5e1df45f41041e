#include "platform/SomaDoSistema.h"

#include "common/Falha.h"
#include "platform/Sha256.h"

#include <chrono>
#include <new>
#include <vector>

namespace quilatador {

SomaDoSistema::SomaDoSistema(Arquivos& arquivos, const std::filesystem::path& caminho)
    : soma_(std::async(std::launch::async | std::launch::deferred, [this, &arquivos, caminho] {
        try {
            return somar(arquivos, caminho);
        } catch (const Falha&) {
            return std::string(); // whoever reads the file for another reason reports what is wrong with it
        } catch (const std::bad_alloc&) {
            return std::string();
        }
    })) {}

/// The future waits for the thread.
SomaDoSistema::~SomaDoSistema() {
    parar_ = true;
}

std::string SomaDoSistema::hexadecimal(const std::function<bool()>& desistencia) {
    constexpr std::chrono::milliseconds entrePerguntas(50);
    while (soma_.wait_for(entrePerguntas) == std::future_status::timeout)
        if (desistencia && desistencia()) return {};
    return soma_.get();
}

std::string SomaDoSistema::somar(Arquivos& arquivos, const std::filesystem::path& caminho) const {
    constexpr std::size_t bloco = 256 * 1024;
    const auto entrada = arquivos.abrirEntrada(caminho);
    const VersaoDoArquivo versao = entrada->versao();
    std::vector<char> bytes(bloco);
    Sha256 soma;
    while (const std::size_t lidos = entrada->ler(bytes)) {
        if (parar_.load(std::memory_order_relaxed)) return {};
        soma.juntar(std::span(bytes).first(lidos));
    }
    return entrada->versao() == versao ? soma.terminar() : std::string();
}

} // namespace quilatador

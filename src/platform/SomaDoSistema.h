#pragma once

#include "common/Arquivos.h"

#include <atomic>
#include <future>

namespace quilatador {

/// Reads a file and sums it in a second thread, with one block of memory. Where the system gives no thread, it does so
/// when the sum is asked for.
class SomaDoSistema final : public SomaDoArquivo {
  public:
    /// `arquivos` opens the file, in that thread; it must outlive this object.
    SomaDoSistema(Arquivos& arquivos, const std::filesystem::path& caminho);
    SomaDoSistema(const SomaDoSistema&) = delete;
    SomaDoSistema& operator=(const SomaDoSistema&) = delete;
    ~SomaDoSistema() override;

    [[nodiscard]] std::string hexadecimal(const std::function<bool()>& desistencia) override;

  private:
    [[nodiscard]] std::string somar(Arquivos& arquivos, const std::filesystem::path& caminho) const;

    std::atomic<bool> parar_ = false;
    std::shared_future<std::string> soma_;
};

} // namespace quilatador

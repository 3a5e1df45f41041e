#include "platform/ArquivosDoSistema.h"

#include "platform/DiaLocal.h"
#include "platform/FalhaDeArquivo.h"

#include <cerrno>
#include <cstdio>
#include <cwchar>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <utility>
#include <windows.h>

namespace quilatador {

namespace {

struct Fechador {
    void operator()(std::FILE* arquivo) const noexcept { std::fclose(arquivo); }
};
using Canal = std::unique_ptr<std::FILE, Fechador>;

/// Opens a file, with what other programs may do with it meanwhile (one of `_SH_...`).
Canal abrir(const std::filesystem::path& caminho, const wchar_t* modo, int partilha) {
    if (!nomePossivel(caminho)) throw falhaDeArquivo(EINVAL);
    std::error_code erro;
    if (std::filesystem::is_directory(caminho, erro)) throw falhaDeArquivo(EISDIR);
    Canal canal(_wfsopen(caminho.c_str(), modo, partilha));
    if (!canal && partilha == _SH_DENYWR && GetLastError() == ERROR_SHARING_VIOLATION) throw falhaDeArquivo(EBUSY);
    if (!canal) throw falhaDeArquivo(errno);
    std::setvbuf(canal.get(), nullptr, _IONBF, 0);
    return canal;
}

HANDLE identificador(const Canal& canal) noexcept {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(canal.get())));
}

/// Whether reading is sure to come to an end. That holds for a file on a disk and for the null device, but not for a
/// pipe, the console or a serial line.
bool temFim(const Canal& canal, const std::filesystem::path& caminho) {
    const DWORD tipo = GetFileType(identificador(canal));
    return tipo == FILE_TYPE_DISK || (tipo == FILE_TYPE_CHAR && _wcsicmp(caminho.filename().c_str(), L"NUL") == 0);
}

std::uint64_t juntarMetades(DWORD alta, DWORD baixa) noexcept {
    return std::uint64_t{alta} << 32 | baixa;
}

VersaoDoArquivo versaoDe(HANDLE arquivo) noexcept {
    BY_HANDLE_FILE_INFORMATION dados{};
    if (!GetFileInformationByHandle(arquivo, &dados)) return {};
    VersaoDoArquivo versao{.volume = dados.dwVolumeSerialNumber,
                           .arquivo = juntarMetades(dados.nFileIndexHigh, dados.nFileIndexLow)};
    FILE_BASIC_INFO tempos{};
    if ((dados.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ||
        !GetFileInformationByHandleEx(arquivo, FileBasicInfo, &tempos, sizeof tempos))
        return versao;
    versao.tamanho = juntarMetades(dados.nFileSizeHigh, dados.nFileSizeLow);
    versao.modificado = tempos.LastWriteTime.QuadPart;
    versao.alterado = tempos.ChangeTime.QuadPart;
    return versao;
}

class EntradaWindows final : public ArquivoEntrada {
  public:
    explicit EntradaWindows(Canal canal) : canal_(std::move(canal)) {}

    [[nodiscard]] std::size_t ler(std::span<char> destino) override {
        const std::size_t lidos = std::fread(destino.data(), 1, destino.size(), canal_.get());
        if (std::ferror(canal_.get())) throw falhaDeTransferencia(errno);
        return lidos;
    }

    [[nodiscard]] VersaoDoArquivo versao() const noexcept override { return versaoDe(identificador(canal_)); }

  private:
    Canal canal_;
};

void escreverNo(const Canal& canal, std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), canal.get()) != bytes.size()) throw falhaDeTransferencia(errno);
}

void fecharCanal(Canal& canal) {
    if (canal && std::fclose(canal.release()) != 0) throw falhaDeTransferencia(errno);
}

class SaidaWindows final : public ArquivoSaida {
  public:
    explicit SaidaWindows(Canal canal) : canal_(std::move(canal)) {}

    void escrever(std::string_view bytes) override { escreverNo(canal_, bytes); }
    void fechar() override { fecharCanal(canal_); }

  private:
    Canal canal_;
};

/// Creates a file that does not exist yet, and that nobody else can open meanwhile.
Canal criarNovo(const std::filesystem::path& caminho) {
    int numero = -1;
    const errno_t erro = _wsopen_s(&numero, caminho.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                                   _SH_DENYRW, _S_IREAD | _S_IWRITE);
    if (erro != 0) throw falhaDeArquivo(erro);
    Canal canal(_wfdopen(numero, L"wb"));
    if (!canal) {
        _close(numero);
        throw falhaDeArquivo(EMFILE);
    }
    std::setvbuf(canal.get(), nullptr, _IONBF, 0);
    return canal;
}

Falha falhaDaTroca(DWORD erro) {
    switch (erro) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
        return falhaDeArquivo(EBUSY);
    case ERROR_ACCESS_DENIED:
        return falhaDeArquivo(EACCES);
    case ERROR_DISK_FULL:
        return falhaDeArquivo(ENOSPC);
    default:
        return falhaDeArquivo(EIO);
    }
}

class ProvisorioWindows final : public ArquivoProvisorio {
  public:
    ProvisorioWindows(std::filesystem::path alvo, std::filesystem::path provisorio)
        : alvo_(std::move(alvo)), provisorio_(std::move(provisorio)) {
        if (existeAlvo()) abrir(alvo_, L"r+bN", _SH_DENYWR); // fails now rather than when all is written
        canal_ = criarNovo(provisorio_);
    }
    ProvisorioWindows(const ProvisorioWindows&) = delete;
    ProvisorioWindows& operator=(const ProvisorioWindows&) = delete;
    ~ProvisorioWindows() override {
        canal_.reset(); // an open file cannot be removed
        if (!provisorio_.empty()) DeleteFileW(provisorio_.c_str());
    }

    void escrever(std::string_view bytes) override { escreverNo(canal_, bytes); }

    void confirmar() override {
        if (_commit(_fileno(canal_.get())) != 0) throw falhaDeTransferencia(errno);
        fecharCanal(canal_);
        if (!trocar()) throw falhaDaTroca(GetLastError());
        provisorio_.clear();
    }

  private:
    [[nodiscard]] bool existeAlvo() const { return GetFileAttributesW(alvo_.c_str()) != INVALID_FILE_ATTRIBUTES; }

    /// `ReplaceFileW` keeps the rights and attributes of the file that it replaces, but not every file system has it.
    [[nodiscard]] bool trocar() const {
        constexpr DWORD comoForPossivel = REPLACEFILE_IGNORE_MERGE_ERRORS;
        if (existeAlvo() &&
            ReplaceFileW(alvo_.c_str(), provisorio_.c_str(), nullptr, comoForPossivel, nullptr, nullptr))
            return true;
        return MoveFileExW(provisorio_.c_str(), alvo_.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    }

    std::filesystem::path alvo_;
    std::filesystem::path provisorio_; ///< empty as soon as the file is in its place
    Canal canal_;
};

} // namespace

ArquivosDoSistema::ArquivosDoSistema() = default; // Windows does not end a process for a failed write

std::unique_ptr<ArquivoEntrada> ArquivosDoSistema::abrirEntrada(const std::filesystem::path& caminho) {
    Canal canal = abrir(caminho, L"rbN", _SH_DENYNO);
    if (!temFim(canal, caminho)) throw falhaDeArquivo(EISDIR);
    return std::make_unique<EntradaWindows>(std::move(canal));
}

std::unique_ptr<ArquivoSaida> ArquivosDoSistema::criarSaida(const std::filesystem::path& caminho) {
    return std::make_unique<SaidaWindows>(abrir(caminho, L"wbN", _SH_DENYWR));
}

std::unique_ptr<ArquivoProvisorio> ArquivosDoSistema::criarAoLado(const std::filesystem::path& alvo) {
    return std::make_unique<ProvisorioWindows>(alvo, nomeAoLado(alvo));
}

std::optional<VersaoDoArquivo> ArquivosDoSistema::versao(const std::filesystem::path& caminho) const {
    if (!nomePossivel(caminho)) return std::nullopt;
    constexpr DWORD soAsPropriedades = 0;
    constexpr DWORD comQualquerOutro = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    constexpr DWORD tambemPastas = FILE_FLAG_BACKUP_SEMANTICS;
    const HANDLE arquivo =
        CreateFileW(caminho.c_str(), soAsPropriedades, comQualquerOutro, nullptr, OPEN_EXISTING, tambemPastas, nullptr);
    if (arquivo == INVALID_HANDLE_VALUE) return std::nullopt;
    const VersaoDoArquivo versao = versaoDe(arquivo);
    CloseHandle(arquivo);
    return versao;
}

std::filesystem::path ArquivosDoSistema::comparavel(const std::filesystem::path& nome) {
    std::wstring minusculas = nome.native();
    CharLowerBuffW(minusculas.data(), static_cast<DWORD>(minusculas.size()));
    return minusculas;
}

std::optional<Data> ArquivosDoSistema::modificadoEm(const std::filesystem::path& caminho) const {
    struct _stat64 situacao {};
    if (!nomePossivel(caminho) || _wstat64(caminho.c_str(), &situacao) != 0) return std::nullopt;
    return diaLocal(situacao.st_mtime);
}

} // namespace quilatador

// The yardstick of compare.sh: a program that does the least work that the job could need, so that others can be
// measured against it. It implements no real check: its messages and its order of the records are placeholders, and it
// only has to survive an unexpected line, not to explain it.
//
//   regua conferir FILE LOG    makes two passes over a file: first the order of the letters and columns 2 to 7 and
//                              235 to 240 of each line, then special characters and the letter of each line
//   regua gravar BYTES FILE    writes that many bytes from memory
//
// It reads and writes through one fixed buffer in pieces of 1 MiB, so that its memory does not depend on the size of
// the file. It prints what it found on the standard error, so that a run can be checked.
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace {

constexpr std::size_t larguraDaLinha = 240;
constexpr std::size_t tamanhoDoBloco = 1024 * 1024;
constexpr std::size_t tamanhoDaPagina = 4096;
/// Extra room after a block of output, for the line that goes beyond its end.
constexpr std::size_t folga = 8192;

using Byte = unsigned char;

[[noreturn]] void desistir(const char* onde) {
    std::perror(onde);
    std::exit(2);
}

/// A block of memory that starts at a page boundary.
template <typename Caractere>
Caractere* reservar(std::size_t bytes) {
    auto* memoria = static_cast<Caractere*>(std::aligned_alloc(tamanhoDaPagina, bytes));
    if (!memoria) desistir("aligned_alloc");
    return memoria;
}

void gravarTudo(int arquivo, const char* bytes, std::size_t quantos) {
    while (quantos > 0) {
        const ssize_t gravados = write(arquivo, bytes, quantos);
        if (gravados <= 0) desistir("write");
        bytes += gravados;
        quantos -= static_cast<std::size_t>(gravados);
    }
}

class Entrada {
  public:
    explicit Entrada(const char* nome) : arquivo_(open(nome, O_RDONLY)) {
        if (arquivo_ < 0) desistir(nome);
    }
    Entrada(const Entrada&) = delete;
    Entrada& operator=(const Entrada&) = delete;
    ~Entrada() {
        std::free(bloco_);
        close(arquivo_);
    }

    void recomecar() {
        if (lseek(arquivo_, 0, SEEK_SET) != 0) desistir("lseek");
    }

    /// Calls `tratar(line, length)` for each line, without its CR LF. A line longer than the buffer arrives in pieces.
    template <typename Tratamento>
    void linhas(Tratamento tratar) {
        std::size_t guardados = 0;
        for (;;) {
            const ssize_t lidos = read(arquivo_, bloco_ + guardados, tamanhoDoBloco - guardados);
            if (lidos < 0) desistir("read");
            if (lidos == 0) break;
            const std::size_t total = guardados + static_cast<std::size_t>(lidos);
            const auto* ultimoFim = static_cast<const Byte*>(memrchr(bloco_, '\n', total));
            std::size_t prontos = ultimoFim ? static_cast<std::size_t>(ultimoFim - bloco_) + 1 : 0;
            if (prontos == 0 && total == tamanhoDoBloco) prontos = total;
            dividir(bloco_, bloco_ + prontos, tratar);
            guardados = total - prontos;
            std::memmove(bloco_, bloco_ + prontos, guardados);
        }
        if (guardados > 0) dividir(bloco_, bloco_ + guardados, tratar);
    }

  private:
    template <typename Tratamento>
    static void dividir(const Byte* linha, const Byte* fim, Tratamento& tratar) {
        while (linha < fim) {
            const auto* lf = static_cast<const Byte*>(std::memchr(linha, '\n', static_cast<std::size_t>(fim - linha)));
            const auto tamanho = static_cast<std::size_t>((lf ? lf : fim) - linha);
            tratar(linha, tamanho > 0 && linha[tamanho - 1] == '\r' ? tamanho - 1 : tamanho);
            linha = lf ? lf + 1 : fim;
        }
    }

    int arquivo_;
    Byte* bloco_ = reservar<Byte>(tamanhoDoBloco);
};

class Saida {
  public:
    explicit Saida(const char* nome) : arquivo_(open(nome, O_WRONLY | O_CREAT | O_TRUNC, 0644)) {
        if (arquivo_ < 0) desistir(nome);
    }
    Saida(const Saida&) = delete;
    Saida& operator=(const Saida&) = delete;
    ~Saida() {
        gravarTudo(arquivo_, bloco_, static_cast<std::size_t>(lugar_ - bloco_));
        std::free(bloco_);
        if (close(arquivo_) != 0) desistir("close");
    }

    /// Makes sure that a whole line fits into the buffer.
    void comecarLinha() {
        if (static_cast<std::size_t>(lugar_ - bloco_) < tamanhoDoBloco) return;
        gravarTudo(arquivo_, bloco_, tamanhoDoBloco);
        const std::size_t resto = static_cast<std::size_t>(lugar_ - bloco_) - tamanhoDoBloco;
        std::memcpy(bloco_, bloco_ + tamanhoDoBloco, resto);
        lugar_ = bloco_ + resto;
    }
    void texto(std::string_view texto) {
        std::memcpy(lugar_, texto.data(), texto.size());
        lugar_ += texto.size();
    }
    void numero(std::uint64_t valor) {
        constexpr int digitos = 6;
        for (int i = digitos - 1; i >= 0; --i, valor /= 10)
            lugar_[i] = static_cast<char>('0' + valor % 10);
        lugar_ += digitos;
    }

  private:
    int arquivo_;
    char* bloco_ = reservar<char>(tamanhoDoBloco + folga);
    char* lugar_ = bloco_;
};

constexpr std::array<bool, 256> especiais = [] {
    std::array<bool, 256> tabela{};
    for (const int codigo : {38, 159, 170, 186})
        tabela[static_cast<std::size_t>(codigo)] = true;
    for (std::size_t codigo = 192; codigo < tabela.size(); ++codigo)
        tabela[codigo] = true;
    return tabela;
}();

/// The letters that may follow each letter.
constexpr auto sucessoes = [] {
    std::array<std::array<bool, 256>, 256> tabela{};
    const auto permitir = [&](char antes, char depois) {
        tabela[static_cast<Byte>(antes)][static_cast<Byte>(depois)] = true;
    };
    constexpr std::string_view definicoes = "ABCDEFGKLS";
    constexpr std::string_view guia = "STUVWXY";
    for (std::size_t i = 1; i < definicoes.size(); ++i)
        permitir(definicoes[i - 1], definicoes[i]);
    for (const char antes : guia) {
        for (const char depois : guia)
            permitir(antes, depois);
        permitir(antes, 'Z');
    }
    return tabela;
}();

/// Whether a line may have a special character. The loop has no branch, so that many characters are tested at a time.
bool suspeita(const Byte* linha, std::size_t tamanho) {
    Byte algum = 0; // as narrow as a character, so that the compiler processes sixteen at a time
    for (std::size_t i = 0; i < tamanho; ++i)
        algum = static_cast<Byte>(algum | linha[i] | (linha[i] == '&' ? 0x80u : 0u));
    return (algum & 0x80u) != 0;
}

class Conferencia {
  public:
    explicit Conferencia(Saida& log) : log_(log) {}

    void sequencia(const Byte* linha, std::size_t tamanho) {
        ++linha_;
        if (tamanho != larguraDaLinha) return achar("tamanho do registro");
        if (linha_ == 1)
            std::memcpy(convenio_.data(), linha + 1, convenio_.size());
        else if (!sucessoes[anterior_][linha[0]])
            achar("ordem dos registros");
        anterior_ = linha[0];
        if (std::memcmp(linha + 1, convenio_.data(), convenio_.size()) != 0) achar("colunas 2 a 7");
        std::uint64_t numero = 0;
        for (std::size_t i = larguraDaLinha - 6; i < larguraDaLinha; ++i) {
            const unsigned digito = linha[i] - static_cast<unsigned>('0');
            numero = digito > 9 ? numero + (1u << 30) : numero * 10 + digito;
        }
        if (numero != linha_) achar("sequencia");
    }

    void recomecar() { linha_ = 0; }

    void conteudo(const Byte* linha, std::size_t tamanho) {
        ++linha_;
        ++letras_[tamanho > 0 ? linha[0] : 0]; // stands in for the check of the record
        if (!suspeita(linha, tamanho)) return;
        for (std::size_t i = 0; i < tamanho; ++i)
            if (especiais[linha[i]]) achar("caractere especial na coluna ", i + 1);
    }

    void contar() const {
        std::fprintf(stderr, "lines %llu findings %llu trailers %llu\n", static_cast<unsigned long long>(linha_),
                     static_cast<unsigned long long>(achados_), static_cast<unsigned long long>(letras_['Z']));
    }

  private:
    void achar(std::string_view oQue, std::size_t coluna = 0) {
        ++achados_;
        log_.comecarLinha();
        log_.texto("Linha: ");
        log_.numero(linha_);
        log_.texto(" - ");
        log_.texto(oQue);
        if (coluna > 0) log_.numero(coluna);
        log_.texto("\r\n");
    }

    Saida& log_;
    std::uint64_t linha_ = 0;
    std::uint64_t achados_ = 0;
    std::array<Byte, 6> convenio_{};
    Byte anterior_ = 0;
    std::array<std::uint64_t, 256> letras_{};
};

void conferir(const char* nome, const char* log) {
    Entrada entrada(nome);
    Saida saida(log);
    Conferencia conferencia(saida);
    entrada.linhas([&](const Byte* linha, std::size_t tamanho) { conferencia.sequencia(linha, tamanho); });
    entrada.recomecar();
    conferencia.recomecar();
    entrada.linhas([&](const Byte* linha, std::size_t tamanho) { conferencia.conteudo(linha, tamanho); });
    conferencia.contar();
}

void gravar(std::uint64_t bytes, const char* nome) {
    const int arquivo = open(nome, O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (arquivo < 0) desistir(nome);
    char* bloco = reservar<char>(tamanhoDoBloco);
    std::memset(bloco, '.', tamanhoDoBloco);
    for (; bytes > tamanhoDoBloco; bytes -= tamanhoDoBloco)
        gravarTudo(arquivo, bloco, tamanhoDoBloco);
    gravarTudo(arquivo, bloco, bytes);
    std::free(bloco);
    if (close(arquivo) != 0) desistir("close");
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view modo = argc == 4 ? argv[1] : "";
    if (modo == "conferir") {
        conferir(argv[2], argv[3]);
    } else if (modo == "gravar") {
        gravar(std::strtoull(argv[2], nullptr, 10), argv[3]);
    } else {
        std::fprintf(stderr, "Uso: regua conferir ARQUIVO LOG | gravar BYTES ARQUIVO\n");
        return 2;
    }
    return 0;
}

#pragma once

#include "common/Arquivos.h"
#include "common/Texto.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>

namespace quilatador {

/// The code tables that are installed beside the program: an Access database (Jet 3 or Jet 4), which is read into
/// memory once and queried by an SQL engine. Upper and lower case of the letters A to Z do not matter in comparisons.
/// One object serves the whole program, but only one thread at a time.
class BancoDeDados {
  public:
    static constexpr VistaTexto nomeDoArquivo = "TabelaErrosZUL.mdb"_t;
    static constexpr VistaTexto conexaoDoPrograma = ";pwd=quimera"_t;

    /// Opens a database. `conexao` consists of parts "name=value" separated by semicolons; only "pwd" is used, the
    /// password, which must be right if the file has one. Raises `Falha` 3024, 3343, 3049 or 3031 (see `falhaDoBanco`).
    /// A missing table or column does not fail here, but in the look-ups that need it.
    BancoDeDados(Arquivos& arquivos, const std::filesystem::path& caminho, VistaTexto conexao = conexaoDoPrograma);
    BancoDeDados(const BancoDeDados&) = delete;
    BancoDeDados& operator=(const BancoDeDados&) = delete;
    ~BancoDeDados();

    /// The description of a collection channel or of a payment form; "" when the table has no such code or no
    /// description for it. `codigo` is converted to upper case; an empty one, or one that contains a NUL, is in no
    /// table. Raises `Falha` 3075 when the engine rejects the query, which contains the code unchanged, and 3078, 3061
    /// or 3259 when the table is unsuitable.
    [[nodiscard]] Texto descricaoFormaArrecadacao(Texto& codigo);
    [[nodiscard]] Texto descricaoFormaPagamento(Texto& codigo);
    /// The text of a return occurrence, or nothing when the table has no such code. `codigo` is read as a number (see
    /// `lerNumero`), and a null text gives "". Raises the same failures.
    [[nodiscard]] std::optional<Texto> ocorrencia(VistaTexto codigo);

    /// The number of queries that the engine has been asked so far.
    [[nodiscard]] std::size_t consultas() const noexcept;

  private:
    struct Conexao;
    std::unique_ptr<Conexao> conexao_;
};

} // namespace quilatador

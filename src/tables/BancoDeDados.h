#pragma once

#include "common/Arquivos.h"
#include "common/Texto.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>

namespace quilatador {

/// The code tables that lie beside the program: an Access database (Jet 3 or Jet 4), read once into memory, where a
/// query engine runs the look-ups. Texts compare without regard to the case of the letters A to Z. One connection
/// serves the whole program, one thread at a time.
class BancoDeDados {
  public:
    static constexpr VistaTexto nomeDoArquivo = "TabelaErrosZUL.mdb"_t;
    static constexpr VistaTexto conexaoDoPrograma = ";pwd=quimera"_t;

    /// Opens a database with a connect string: parts "name=value" between semicolons, of which "pwd" counts. It must
    /// be the password in the file, unless that has none. `Falha`, with a number of `falhaDoBanco`, where the file
    /// cannot be read, is no such database, is damaged where the rows of the code tables are, or has another password.
    /// What else is wrong with it, a table or column that it lacks, makes the look-ups in that table fail.
    BancoDeDados(Arquivos& arquivos, const std::filesystem::path& caminho, VistaTexto conexao = conexaoDoPrograma);
    BancoDeDados(const BancoDeDados&) = delete;
    BancoDeDados& operator=(const BancoDeDados&) = delete;
    ~BancoDeDados();

    /// The description of a collection channel or a payment form; "" where the table lacks the code or its
    /// description. `codigo` becomes upper case; an empty one, or one with a NUL, is in no table. `Falha` 3075 where
    /// the engine rejects the query, into which the code goes as it stands, 3078, 3061 or 3259 where the table is not
    /// as it has to be.
    [[nodiscard]] Texto descricaoFormaArrecadacao(Texto& codigo);
    [[nodiscard]] Texto descricaoFormaPagamento(Texto& codigo);
    /// The text of a return occurrence, whose code is read as a number; "" for a null text, none where the table lacks
    /// the code.
    [[nodiscard]] std::optional<Texto> ocorrencia(VistaTexto codigo);

    /// Queries that have reached the engine.
    [[nodiscard]] std::size_t consultas() const noexcept;

  private:
    struct Conexao;
    std::unique_ptr<Conexao> conexao_;
};

} // namespace quilatador

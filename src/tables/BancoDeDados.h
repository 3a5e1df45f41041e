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
    static constexpr VistaTexto nomeDoArquivo = "TabelaErrosZUL.mdb";
    static constexpr VistaTexto conexaoDoPrograma = ";pwd=quimera";

    /// Opens a database with a connect string: parts "name=value" between semicolons, of which "pwd" counts. It must
    /// be the password in the file, unless that has none. `Falha`, with a number of `falhaDoBanco`, where the file
    /// cannot be read, is no such database, is damaged, has another password, or lacks a table or column.
    BancoDeDados(Arquivos& arquivos, const std::filesystem::path& caminho, VistaTexto conexao = conexaoDoPrograma);
    BancoDeDados(const BancoDeDados&) = delete;
    BancoDeDados& operator=(const BancoDeDados&) = delete;
    ~BancoDeDados();

    /// The description of a collection channel or a payment form; "" where the table lacks the code or its
    /// description. `codigo` becomes upper case; an empty one is not looked up. `Falha` 3075 where the engine rejects
    /// the query, into which the code goes as it stands.
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

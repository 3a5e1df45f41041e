#pragma once

#include "validator/completa/ConteudoCompleto.h"
#include "validator/completa/FaltasDoLugar.h"
#include "validator/completa/JanelaDeLinhas.h"
#include "validator/completa/TiposDeLinha.h"
#include "validator/Ordem.h"

#include <array>

namespace quilatador {

/// Gives every record of a remittance its place by its letter, and goes on behind each that breaks a rule of `Ordem`:
///
/// - A definition that is missing is told once, where the next one asks for it. One in a wrong place, or there for the
///   second time, has no effect.
/// - A record of a slip that is missing is told where the next one asks for it; one that is late is kept. A T whose S
///   is missing opens a slip.
///
/// What has its place goes on to `ConteudoCompleto`.
class OrdemCompleta {
  public:
    /// Keeps references: all must outlive this object.
    OrdemCompleta(JanelaDeLinhas& janela, Coletor& coletor, ConteudoCompleto& conteudo, FaltasDoLugar& faltas) noexcept
        : janela_(janela), coletor_(coletor), conteudo_(conteudo), faltas_(faltas) {}

    /// A record with this letter has come in line `linha` (1-based); `tipo` is null if its content cannot be looked at.
    /// The window stands at its line.
    void receber(char letra, const TipoDeLinha* tipo, std::int64_t linha);
    /// "IDRegistro" of a record, which `receber` checks by itself in all but the header.
    void verificarIDRegistro(char letra, const TipoDeLinha& tipo);
    /// Ends the slip in hand, because another one begins in that line.
    void encerrarGuia(std::int64_t linha);
    /// The file has ended in that line, because of `causa` if that is not 0. Tells if the trailer is missing.
    void terminar(std::int64_t linha, std::int64_t causa);
    /// Whether the trailer has come.
    [[nodiscard]] bool temTrailer() const noexcept { return ordem_.naDefinicao('Z'); }

  private:
    using PorLetra = std::array<std::int64_t, 256>;

    [[nodiscard]] bool receberDefinicao(char letra, const TipoDeLinha* tipo, std::int64_t linha);
    [[nodiscard]] bool temLugarNaDefinicao(char letra, std::int64_t linha);
    void faltar(char exigida, const Ordem::Quebra& quebra, char letra, std::int64_t linha);
    void receberGuia(const TipoDeLinha* tipo, std::int64_t linha);
    [[nodiscard]] bool receberDaGuia(char letra, const TipoDeLinha* tipo, std::int64_t linha);
    void abrirGuiaSemS(std::int64_t linha);
    [[nodiscard]] bool temLugarNaGuia(const Ordem::Quebra& quebra, char letra, std::int64_t linha);
    [[nodiscard]] bool abreOutraGuia(char letra);
    void receberTrailer(std::int64_t linha);
    void acusarFimDaGuia(std::int64_t linha);
    void marcarQueFaltam(std::int64_t causa);
    void marcarPerdidas(char letra);
    std::int64_t acusar(const Ordem::Quebra& quebra, char letra, std::int64_t linha, std::int64_t causa);

    JanelaDeLinhas& janela_;
    Coletor& coletor_;
    ConteudoCompleto& conteudo_;
    FaltasDoLugar& faltas_;
    Ordem ordem_;
    char ultimaLetra_ = 'A';  ///< of the last record that has its effect
    PorLetra faltam_{};       ///< finding that says that a definition is missing, by letter
    PorLetra faltamNaGuia_{}; ///< the same for the records of the slip in hand
    /// The last wrong "IDRegistro" of a letter: its line, by how much, and the finding.
    struct IDErrado {
        std::int64_t linha = 0;
        double diferenca = 0;
        std::int64_t causa = 0;
    };
    std::array<IDErrado, 256> ids_{};
};

} // namespace quilatador

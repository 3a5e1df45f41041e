#pragma once

#include "layout/RegistroRemessa.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

namespace quilatador {

/// Records of one type that are kept for later, in the order of the file. Each costs little more than the bytes of its
/// line: only the lines are kept, and all of them are read through one record.
class RegistrosGuardados {
  public:
    /// A field and the value that a record is to have there.
    struct Procurado {
        VistaTexto campo;
        const Valor& valor;
    };

    static constexpr std::size_t maisProcurados = 4;

    /// Keeps nothing, and has no type: give it one before the first record.
    RegistrosGuardados() = default;
    /// Keeps records of the type of `modelo`.
    explicit RegistrosGuardados(RegistroRemessa modelo) : modelo_(std::move(modelo)) {}

    [[nodiscard]] bool temTipo() const noexcept { return !modelo_.campos().empty(); }
    /// The type of the records. Its line is that of one of them.
    [[nodiscard]] const RegistroRemessa& tipo() const noexcept { return modelo_; }
    [[nodiscard]] bool vazia() const noexcept { return quantos_ == 0; }
    [[nodiscard]] std::size_t tamanho() const noexcept { return quantos_; }

    /// Keeps a record, whose line is not empty.
    void guardar(const RegistroRemessa& registro);
    /// Forgets the records, but not their type. The next ones use the same memory again.
    void esvaziar() noexcept {
        quantos_ = 0;
        colunas_.clear();
    }

    /// The record at a place (0-based). It is valid until the next call of this function or of `contem`, which read
    /// another line into the same object; so not even reading may be done by two threads at once.
    [[nodiscard]] const RegistroRemessa& operator[](std::size_t lugar) const;
    /// Whether some record has all these values (see `igual`). The record's fields are read in the given order, as far
    /// as they match; there may be `maisProcurados` of them. `Falha` 5 if the type lacks a field, 1 if one cannot be
    /// read; neither while nothing is kept.
    [[nodiscard]] bool contem(std::initializer_list<Procurado> procurados) const;

  private:
    /// A line and its place.
    struct Guardado {
        Texto linha;
        std::int64_t lugar = 0;
    };
    /// The values of one field in all records, as far as they were read.
    struct Coluna {
        Texto nome; ///< by which it was asked for
        const CampoRemessa* campo;
        std::vector<std::optional<Valor>> valores;
    };

    [[nodiscard]] std::size_t colunaDe(VistaTexto nomeCampo) const;
    [[nodiscard]] const Valor& valorNa(Coluna& coluna, std::size_t lugar) const;

    mutable RegistroRemessa modelo_;
    mutable std::vector<Coluna> colunas_; ///< of the fields that were asked for, because every slip asks for them again
    std::vector<Guardado> guardados_;     ///< the first `quantos_` are kept; the others are memory for later ones
    std::size_t quantos_ = 0;
};

} // namespace quilatador

#pragma once

#include "layout/RegistroRemessa.h"
#include "validator/DataNaBarra.h"

#include <array>

namespace quilatador {

/// Reads due date and barcode of installments (segment Y) for `DataNaBarra`. The fields are looked up once.
class ParcelaNaBarra {
  public:
    /// `tipo` is the record type, which must outlive this object. `Falha` 5 if it lacks a field that is read.
    explicit ParcelaNaBarra(const RegistroRemessa& tipo);

    /// Counts a record of that type, unless its due date cannot be read.
    void contar(const RegistroRemessa& registro, DataNaBarra& datas);

  private:
    const CampoRemessa& vencimento_;
    std::array<const CampoRemessa*, 4> partes_;
    Texto barra_;
};

} // namespace quilatador

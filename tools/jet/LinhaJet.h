#pragma once

#include "jet/EscritorJet.h"

#include <functional>

namespace quilatador {

/// Adds a little-endian number of so many bytes, or writes one over what is there.
void juntarNumero(Texto& destino, std::uint64_t numero, std::size_t bytes);
void gravarNumero(Texto& destino, std::size_t posicao, std::uint64_t numero, std::size_t bytes);

/// Whether the columns of a type have one length; if so, how many bytes.
[[nodiscard]] std::size_t tamanhoFixo(TipoJet tipo) noexcept;

/// A text as the rows have it: Windows-1252 in Jet 3, UCS-2 in Jet 4.
[[nodiscard]] Texto textoJet(VistaTexto texto, const FormatoJet& formato);

/// The bytes of a row. `guardarLongo` puts the bytes of a long text away and gives its head.
[[nodiscard]] Texto montarLinhaJet(const std::vector<ColunaJet>& colunas, const std::vector<ValorJet>& valores,
                                   const FormatoJet& formato, const std::function<Texto(const Texto&)>& guardarLongo);

} // namespace quilatador

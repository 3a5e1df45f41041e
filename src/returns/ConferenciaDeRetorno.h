#pragma once

#include "run/Ambiente.h"
#include "run/modVariaveis.h"
#include "run/ResumoCompleto.h"
#include "run/TipoArquivo.h"

#include <atomic>
#include <filesystem>
#include <optional>
#include <span>

namespace quilatador {

/// The complete check of a return of type `tipo`, ZUL708 or TAV001: it reads the file once and writes no log. The
/// findings go to `ouvintes` as they are made, numbered from 1. `cancelado` is that of `Rodada`; `versao` is the state
/// of the file that the log is about, nothing for any.
///
/// In a TAV001 the trailer (the first record Z) has to say how many records there are, header and trailer included, and
/// the sum of the payments (records G). Empty and blank lines are no records, so that it does not matter how the last
/// line ends; records of any other letter are. Records that follow the trailer are a finding of their own, and the
/// totals may then be those of all records. Of a number of records that is too long for its field only the last digits
/// are compared. The totals are told last, and not at all if the check did not reach the end of the file.
///
/// In a ZUL708 each occurrence is a finding. A slip is a record S and what follows until the next S or a record before
/// S in the alphabet or the trailer; it counts as one with errors if it has an occurrence.
///
/// The outcome is `Falhou` if the first line is no header of that type (finding "tav001.tipoInvalido" or
/// "zul708.tipoInvalido"), and `NaoRodou` if the file is no longer the one of the log, or the file, a look-up or the
/// memory failed; `descricao` then says why. The counts are those up to there.
[[nodiscard]] ResumoCompleto conferirRetorno(TipoArquivo tipo, const Ambiente& ambiente,
                                             const std::filesystem::path& arquivo, const modVariaveis& globais,
                                             std::span<Relator* const> ouvintes, const std::atomic<bool>& cancelado,
                                             const std::optional<VersaoDoArquivo>& versao = std::nullopt);

} // namespace quilatador

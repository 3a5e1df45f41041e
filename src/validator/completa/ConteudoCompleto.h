#pragma once

#include "validator/completa/Coletor.h"
#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"
#include "validator/ParcelaNaBarra.h"

#include <optional>

namespace quilatador {

/// The content side of a complete check: the definitions as they come, and every slip as soon as it has ended, through
/// the very checks of the log.
class ConteudoCompleto {
  public:
    /// `definicao` holds what was asked for (format and position of the due date). With `primeiras` the content of the
    /// later slips is left out. References must outlive this object.
    ConteudoCompleto(Coletor& coletor, ArquivoRemessa& leiaute, Definicao definicao, std::optional<double> primeiras);

    void convenio(VistaTexto convenio) { definicao_.convenio = convenio; }
    /// The header (A), whose line must be whole.
    void header(const RegistroRemessa& registro);
    /// A header whose line is not whole. It is not checked, but still names the revision of the layout.
    void headerTorto(const RegistroRemessa& registro);
    /// A definition (B to L) that has its effect.
    void definir(const RegistroRemessa& registro, char letra);
    /// A definition that is there, but cannot be checked because of the finding with this number.
    void definirSemConteudo(char letra, std::int64_t causa);
    /// Any record, of whatever place.
    void verificarCaracteres(const RegistroRemessa& registro, char letra);

    /// A slip begins with its record S; or, where that is missing or cannot be checked, at this line with whatever
    /// comes next.
    void iniciarGuia(const RegistroRemessa& registroS);
    void iniciarGuiaSemS(std::int64_t linha);
    /// A record T to Y of the slip in hand.
    void guardar(const RegistroRemessa& registro, char letra);
    /// A record T to Y that is there, but cannot be checked.
    void guardarSemConteudo(char letra);
    /// The slip in hand has ended: its content is checked. Nothing if there is none.
    void encerrarGuia();
    /// Adds the slips and installments of a part of the file that had nothing to tell.
    void somar(const ContagemDeGuias& guias, const DataNaBarra& datas);
    /// How many definitions have been checked so far.
    [[nodiscard]] std::size_t definicoes() const noexcept { return definicoes_; }
    [[nodiscard]] const DataNaBarra& datas() const noexcept { return datas_; }
    /// Puts into the summary where the barcodes have their due date.
    void contarDatas(ResumoCompleto& resumo) const;

  private:
    [[nodiscard]] bool guiaPedida() const noexcept { return !primeiras_ || static_cast<double>(guias_) <= *primeiras_; }

    Coletor& coletor_;
    Definicao definicao_;
    GuiaEmMaos guia_;
    std::optional<double> primeiras_;
    DataNaBarra datas_;
    std::optional<ParcelaNaBarra> parcelas_; ///< nothing if the layout lacks what it reads
    std::size_t definicoes_ = 0;
    std::int64_t guias_ = 0;
    bool parcelaSemConteudo_ = false;
};

} // namespace quilatador

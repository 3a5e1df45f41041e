#include "cli/RelatorDoTerminal.h"

#include "cli/TextoNoTerminal.h"
#include "common/Numero.h"

#include <algorithm>
#include <initializer_list>

namespace quilatador {

namespace {

constexpr std::size_t maisBlocos = 50;
constexpr std::size_t maisConsequencias = 10; ///< rules that a block lists below its cause

/// The parameters of the escape sequence that sets a colour.
namespace cor {
constexpr std::string_view ruim = "1;31";
constexpr std::string_view atencao = "1;33";
constexpr std::string_view neutra = "1;36";
constexpr std::string_view bom = "1;32";
constexpr std::string_view realce = "1";
} // namespace cor

std::string_view corDo(const Achado& achado) {
    if (achado.discutido) return cor::neutra;
    return achado.gravidade == Gravidade::Aviso ? cor::atencao : cor::ruim;
}

std::string_view corDo(Veredito::Sinal sinal) {
    switch (sinal) {
    case Veredito::Sinal::Bom:
        return cor::bom;
    case Veredito::Sinal::Atencao:
        return cor::atencao;
    case Veredito::Sinal::Ruim:
        return cor::ruim;
    }
    return {};
}

/// The parts that are not empty, with semicolons between them.
Texto enumerar(std::initializer_list<Texto> partes) {
    Texto texto;
    for (const Texto& parte : partes)
        if (!parte.empty()) texto += junta(texto.empty() ? ""_t : "; "_t, parte);
    return texto;
}

Texto segmentoDe(const Achado& achado) {
    return achado.segmento == 0 ? Texto() : junta("segmento "_t, VistaTexto(&achado.segmento, 1));
}

/// Puts items behind each other, and in further lines where they do not fit.
class Paragrafo {
  public:
    explicit Paragrafo(std::string inicio) : linha_(std::move(inicio)) {}

    void somar(const std::string& item, std::ostream& saida) {
        constexpr std::size_t colunas = 100;
        if (largura(linha_) + largura(item) > colunas) {
            saida << linha_ << '\n';
            linha_ = "   ";
        }
        linha_ += ' ' + item;
    }
    void terminar(std::ostream& saida) const { saida << linha_ << '\n'; }

  private:
    std::string linha_;
};

} // namespace

RelatorDoTerminal::RelatorDoTerminal(Sessao& sessao)
    : sessao_(sessao), saida_(sessao.maquina().saida), milhar_(sessao.maquina().localidade.separadorDeMilhar()) {}

std::string RelatorDoTerminal::pintado(std::string_view texto, std::string_view cor) const {
    std::string resultado(texto);
    if (!sessao_.maquina().saidaColorida) return resultado;
    return std::string("\x1b[").append(cor).append("m").append(resultado).append("\x1b[0m");
}

void RelatorDoTerminal::achado(const Achado& achado) {
    if (!sessao_.argumentos().todos) return grupos_.achado(achado);
    sessao_.limparTela();
    escreverBloco(achado);
}

void RelatorDoTerminal::escreverBloco(const Achado& achado) {
    const bool todos = sessao_.argumentos().todos;
    saida_ << '\n'
           << pintado(utf8DeTexto(classeDo(achado)), corDo(achado)) << ": "
           << pintado(paraTerminal(todos ? VistaTexto(achado.mensagem) : mensagemComum(achado)), cor::realce) << "\n  "
           << paraTerminal(enumerar(
                  {todos ? junta("achado "_t, textoDe(achado.n)) : Texto(), junta("regra "_t, achado.id),
                   textoDoLugar(achado.linha, achado.guia, achado.idGuia), segmentoDe(achado),
                   achado.campo ? textoDoCampo(*achado.campo) : Texto(),
                   todos && achado.causa > 0 ? junta("decorre do achado "_t, textoDe(achado.causa)) : Texto()}))
           << '\n';
    if (achado.campo) saida_ << "  encontrado: " << ouNada(achado.campo->encontrado) << '\n';
    if (achado.campo && achado.campo->esperado) saida_ << "  esperado:   " << ouNada(*achado.campo->esperado) << '\n';
    if (achado.discutido) saida_ << "  motivo:     " << paraTerminal(achado.motivo) << '\n';
}

void RelatorDoTerminal::escreverGrupo(const GrupoDeAchados& grupo) {
    escreverBloco(grupo.primeiro);
    if (grupo.quantidade > 1) escreverLugares(grupo);
    if (grupo.deConsequencias()) saida_ << "  decorre de outro achado\n";
    if (!grupo.consequencias.empty()) escreverConsequencias(grupo);
}

void RelatorDoTerminal::escreverLugares(const GrupoDeAchados& grupo) {
    Paragrafo paragrafo("  " + paraTerminal(contagem(grupo.quantidade, "vez"_t, "vezes"_t, milhar_)) + ":");
    const auto restam = static_cast<std::size_t>(grupo.quantidade) - grupo.lugares.size();
    for (std::size_t i = 0; i < grupo.lugares.size(); ++i) {
        const Texto lugar = textoDoLugar(grupo.lugares[i].linha, grupo.lugares[i].guia);
        const bool ultimo = restam == 0 && i + 1 == grupo.lugares.size();
        paragrafo.somar((lugar.empty() ? "sem linha" : paraTerminal(lugar)) + (ultimo ? "" : ";"), saida_);
    }
    if (restam > 0)
        paragrafo.somar("e mais " + paraTerminal(comMilhares(static_cast<std::int64_t>(restam), milhar_)), saida_);
    paragrafo.terminar(saida_);
}

void RelatorDoTerminal::escreverConsequencias(const GrupoDeAchados& grupo) {
    std::int64_t total = 0;
    for (const GrupoDeAchados* consequencia : grupo.consequencias)
        total += consequencia->quantidade;
    saida_ << "  " << (total == 1 ? "daqui decorre " : "daqui decorrem ")
           << paraTerminal(contagem(total, "outro:"_t, "outros:"_t, milhar_)) << '\n';
    const std::size_t mostradas = std::min(grupo.consequencias.size(), maisConsequencias);
    for (std::size_t i = 0; i < mostradas; ++i) {
        const GrupoDeAchados& consequencia = *grupo.consequencias[i];
        const Achado& primeiro = consequencia.primeiro;
        saida_ << "    " << paraTerminal(comMilhares(consequencia.quantidade, milhar_)) << " × "
               << paraTerminal(enumerar({primeiro.mensagem, junta("regra "_t, primeiro.id),
                                         primeiro.campo ? junta("campo "_t, primeiro.campo->nome) : Texto(),
                                         junta(consequencia.quantidade == 1 ? ""_t : "primeiro: "_t,
                                               textoDoLugar(primeiro.linha, primeiro.guia, primeiro.idGuia))}))
               << '\n';
    }
    const std::size_t outras = grupo.consequencias.size() - mostradas;
    if (outras > 0)
        saida_ << "    e de "
               << paraTerminal(contagem(static_cast<std::int64_t>(outras), "outra regra"_t, "outras regras"_t, milhar_))
               << '\n';
}

void RelatorDoTerminal::escreverGrupos() {
    const auto grupos = grupos_.emOrdem();
    const std::size_t mostrados = std::min(grupos.size(), maisBlocos);
    for (std::size_t i = 0; i < mostrados; ++i)
        escreverGrupo(*grupos[i]);
    const std::size_t outros = grupos.size() - mostrados;
    if (outros > 0)
        saida_ << "\nHá mais "
               << paraTerminal(contagem(static_cast<std::int64_t>(outros), "bloco como estes"_t, "blocos como estes"_t))
               << " (--todos mostra todos os achados).\n";
    grupos_.limpar();
}

void RelatorDoTerminal::terminar(const ResumoCompleto& completa) {
    sessao_.limparTela();
    if (!sessao_.argumentos().todos) escreverGrupos();
    saida_ << '\n' << paraTerminal(textoDaConferencia(completa, milhar_)) << '\n';
    if (const Texto datas = textoDasDatas(completa, milhar_); !datas.empty()) saida_ << paraTerminal(datas) << '\n';
    saida_ << std::flush;
}

void RelatorDoTerminal::escreverVeredito(VistaTexto arquivo, const Veredito& julgado) {
    saida_ << "  " << paraTerminal(arquivo) << ": " << pintado(paraTerminal(julgado.texto), corDo(julgado.sinal))
           << std::endl;
}

} // namespace quilatador

#pragma once

#include "frontend/window/Tela.h"
#include "support/Falsos.h"

#include <functional>

namespace quilatador::testes {

/// Keeps what was done to the window, one line a call: "mostrar Frame1 0", "mensagem [title] text". Progress and
/// event handling are not noted.
class TelaFalsa final : public Tela {
  public:
    void rotulo(Rotulo qual, VistaTexto texto) override {
        static constexpr VistaTexto nomes[] = {"lblOperacao", "lblEmpresa", "lblRemessa"};
        chamadas.push_back(junta("rotulo ", nomes[static_cast<std::size_t>(qual)], ": ", texto));
    }
    void iniciarProgresso(const Progresso&) override {}
    void avancar(const Progresso& progresso) override {
        if (aoAvancar) aoAvancar(progresso.registroAtual);
    }
    void concluirProgresso(const Progresso&) override {}
    void processarEventos() override {
        if (aoAtender) aoAtender();
    }
    void mensagem(const Mensagem& mensagem) override {
        const VistaTexto icone = mensagem.icone == Mensagem::Icone::Exclamacao ? "! " : "";
        chamadas.push_back(junta("mensagem [", mensagem.titulo, "] ", icone, mensagem.texto));
    }
    [[nodiscard]] std::optional<double> primeirasGuias() const override { return std::nullopt; }
    void mostrar(Controle controle, bool visivel) override { anotar("mostrar", controle, visivel ? "1" : "0"); }
    void habilitar(Controle controle, bool habilitado) override {
        anotar("habilitar", controle, habilitado ? "1" : "0");
    }
    void legenda(Controle controle, VistaTexto texto) override { anotar("legenda", controle, texto); }
    void focar(Controle controle) override { chamadas.push_back(junta("focar ", nomeDoControle(controle))); }
    void marcar(Controle controle, bool marcado) override { anotar("marcar", controle, marcado ? "1" : "0"); }
    void escrever(Controle controle, VistaTexto texto) override { anotar("escrever", controle, texto); }
    void nomeArquivo(const std::filesystem::path& caminho) override {
        anotar("escrever", Controle::txtNomeArquivo, caminho.string());
    }
    void fechar() override { chamadas.emplace_back("fechar"); }

    /// All calls since the last time, one a line, in UTF-8.
    [[nodiscard]] std::string novas() {
        Texto linhas;
        for (const Texto& chamada : std::exchange(chamadas, {}))
            linhas += chamada + "\n";
        return utf8DeTexto(linhas);
    }

    std::vector<Texto> chamadas;
    std::function<void(std::int32_t registro)> aoAvancar; ///< what the user does at a record
    std::function<void()> aoAtender;                      ///< what the user does elsewhere

  private:
    void anotar(VistaTexto operacao, Controle controle, VistaTexto valor) {
        chamadas.push_back(junta(operacao, " ", nomeDoControle(controle), " ", valor));
    }
};

} // namespace quilatador::testes

#include "cli/Sessao.h"

#include "frontend/Pedido.h"

namespace quilatador {

Sessao::Sessao(const Argumentos& argumentos, const Maquina& maquina)
    : argumentos_(argumentos)
    , maquina_(maquina)
    , painel_(maquina.erros, maquina.relogio,
              {.comProgresso = maquina.errosNoTerminal && !argumentos.silencioso,
               .largura = maquina.larguraDoTerminal,
               .primeiras = argumentos.primeiras,
               .aoAtender =
                   [this] {
                       if (maquina_.interrompido()) cancelado_ = true;
                   }})
    , ambiente_{painel_,          maquina.relogio,  maquina.localidade,
                maquina.lancador, maquina.arquivos, argumentos.pasta.value_or(maquina.pastaDoPrograma)} {}

TipoArquivo Sessao::tipoDe(const std::filesystem::path& arquivo) const {
    return argumentos_.tipo ? *argumentos_.tipo
                            : reconhecerTipo(arquivo, maquina_.arquivos).value_or(TipoArquivo::ZUL702);
}

void Sessao::dizer(VistaTexto mensagem) {
    painel_.mensagem({.texto = Texto(mensagem), .titulo = Texto(tituloDoPrograma)});
}

std::optional<Texto> recusaDoNome(const std::filesystem::path& arquivo) {
    if (arquivo.empty()) return Texto("Nome de arquivo vazio"_t);
    if (arquivo.is_absolute()) return std::nullopt;
    return Texto("A pasta de trabalho não existe mais; informe o caminho completo do arquivo"_t);
}

Texto nomeParaMensagem(const std::filesystem::path& arquivo) {
    const Texto nome = textoDoCaminho(arquivo);
    return nome.empty() ? Texto(R"("")"_t) : nome;
}

} // namespace quilatador

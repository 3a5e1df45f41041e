#include "frontend/GruposDeAchados.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quilatador {
namespace {

/// A finding written as rule, ".field", "=code" of an occurrence in that field, "?" for a warning, "!" for one that is
/// disputed, and "<" with its cause.
Achado ler(const std::string& escrito, std::int64_t n) {
    static constexpr VistaTexto ids = "abcde"_t;
    Achado achado;
    achado.id = ids.substr(static_cast<std::size_t>(escrito[0] - 'a'), 1);
    achado.n = n;
    achado.linha = n;
    if (escrito.find('.') != std::string::npos) achado.campo = CampoDoAchado{Texto(1, escrito[2]), 1, 1, {}, {}};
    if (const auto codigo = escrito.find('='); codigo != std::string::npos) {
        achado.gravidade = Gravidade::Ocorrencia;
        achado.campo->encontrado = Texto(1, escrito[codigo + 1]);
    }
    if (escrito.find('?') != std::string::npos) achado.gravidade = Gravidade::Aviso;
    achado.discutido = escrito.find('!') != std::string::npos;
    if (const auto causa = escrito.find('<'); causa != std::string::npos)
        achado.causa = std::stoll(escrito.substr(causa + 1));
    return achado;
}

std::string mostrar(const GrupoDeAchados& grupo) {
    std::ostringstream texto;
    texto << (grupo.deConsequencias() ? "<" : "") << utf8DeTexto(grupo.primeiro.id);
    if (grupo.primeiro.campo) texto << '.' << utf8DeTexto(grupo.primeiro.campo->nome);
    for (const LugarDoAchado& lugar : grupo.lugares)
        texto << ',' << lugar.linha;
    if (grupo.quantidade > static_cast<std::int64_t>(grupo.lugares.size())) texto << ",of " << grupo.quantidade;
    for (const GrupoDeAchados* consequencia : grupo.consequencias)
        texto << " (" << mostrar(*consequencia) << ')';
    return texto.str();
}

std::string agrupar(const std::string& achados, GruposDeAchados& grupos) {
    std::istringstream resto(achados);
    std::int64_t n = 0;
    for (std::string escrito; resto >> escrito;)
        grupos.achado(ler(escrito, ++n));
    std::string texto;
    for (const GrupoDeAchados* grupo : grupos.emOrdem())
        texto.append(texto.empty() ? "" : "; ").append(mostrar(*grupo));
    return texto;
}

TEST(GruposDeAchados, porRegraECampoComAsConsequenciasNaCausa) {
    const std::pair<std::string, std::string> casos[] = {
        {"", ""},
        {"a b a", "a,1,3; b,2"},
        {"a.x a.y a a.x", "a.x,1,4; a.y,2; a,3"},
        {"a! b? c<9 d e? a", "d,4; a,6; <c,3; b,2; e,5; a,1"},
        {"a b<1 c<2 b<3 c?<1", "a,1 (<b,2,4) (<c,3) (<c,5)"},
        {"a b a c<2 c<3 c<1", "a,1,3 (<c,5,6); b,2 (<c,4)"},
        {"a b b<1", "a,1 (<b,3); b,2"},
        {"a.x=1 a.x=2 a.y=1", "a.x,1,3; a.x,2"},
        {"a<8 b<1", "<a,1; <b,2"},
    };
    GruposDeAchados grupos;
    for (const auto& [achados, esperado] : casos) {
        EXPECT_EQ(agrupar(achados, grupos), esperado) << achados;
        grupos.limpar();
    }
}

TEST(GruposDeAchados, soOsPrimeirosLugaresEAsUltimasCausasSaoLembrados) {
    std::string achados;
    std::string primeiros;
    for (int n = 1; n <= 26; ++n)
        achados += "a ";
    for (int n = 1; n <= 25; ++n)
        primeiros.append(",").append(std::to_string(n));
    for (int n = 0; n < 5000; ++n)
        achados += "b ";
    GruposDeAchados grupos;
    const std::string texto = agrupar(achados + "c<25 c<26 d<60 d<5000", grupos);
    EXPECT_TRUE(texto.starts_with("a" + primeiros + ",of 26 (<c,5027); b,27,")) << texto;
    EXPECT_TRUE(texto.ends_with(",of 5000 (<d,5030); <c,5028; <d,5029")) << texto;
}

} // namespace
} // namespace quilatador

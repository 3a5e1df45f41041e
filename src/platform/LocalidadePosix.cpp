#include "platform/LocalidadeDoSistema.h"

#include <cstdlib>
#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale is of POSIX, not of C++

namespace quilatador {

namespace {

/// One category of the user's locale. The locale of the process stays as it is.
class Categoria {
  public:
    Categoria(int mascara, const char* variavel) {
        const std::string nome = escolhida(variavel);
        const bool temLingua = nome != "C" && nome != "POSIX" && !nome.starts_with("C.");
        if (temLingua) locale_ = newlocale(mascara, nome.c_str(), nullptr);
    }
    Categoria(const Categoria&) = delete;
    Categoria& operator=(const Categoria&) = delete;
    ~Categoria() {
        if (locale_) freelocale(locale_);
    }

    /// "" if the locale has no language or is not installed.
    [[nodiscard]] std::string texto(nl_item item) const { return locale_ ? nl_langinfo_l(item, locale_) : ""; }

  private:
    static std::string escolhida(const char* variavel) {
        for (const char* nome : {"LC_ALL", variavel, "LANG"})
            if (const char* valor = std::getenv(nome); valor && *valor) return valor;
        return "C";
    }

    locale_t locale_ = nullptr;
};

TextosDoSistema textosDoUsuario() {
    const Categoria numeros(LC_NUMERIC_MASK, "LC_NUMERIC");
    const Categoria tempo(LC_TIME_MASK, "LC_TIME");
    TextosDoSistema textos{numeros.texto(THOUSEP), numeros.texto(RADIXCHAR), {}};
    for (std::size_t i = 0; i < textos.meses.size(); ++i)
        textos.meses[i] = tempo.texto(MON_1 + static_cast<nl_item>(i));
    return textos;
}

} // namespace

LocalidadeDoSistema::LocalidadeDoSistema() : LocalidadeDoSistema(textosDoUsuario()) {}

} // namespace quilatador

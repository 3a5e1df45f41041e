#include "layout/CampoRemessa.h"

#include "common/Diversos.h"
#include "common/Falha.h"
#include "common/Numero.h"
#include "layout/ArquivoRemessa.h"
#include "layout/RegistroRemessa.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quilatador {

namespace {

double potenciaDeDez(std::uint8_t expoente) noexcept {
    constexpr std::array<double, 10> usuais{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    return expoente < usuais.size() ? usuais[expoente] : std::pow(10.0, expoente);
}

} // namespace

void CampoRemessa::natureza(Texto natureza) {
    natureza_ = std::move(natureza);
    tipo_ = natureza_ == "S"_t   ? Tipo::DeTexto
            : natureza_ == "N"_t ? Tipo::DeNumero
            : natureza_ == "D"_t ? Tipo::DeData
            : natureza_ == "R"_t ? Tipo::DeContador
                                 : Tipo::SemConversao;
}

Valor CampoRemessa::interpretar(VistaTexto texto) const {
    switch (tipo_) {
    case Tipo::DeTexto:
        return alinhamento_ == 1 ? semBrancosAEsquerda(texto) : semBrancosADireita(texto);
    case Tipo::DeNumero:
    case Tipo::DeContador:
        if (const auto digitos = numeroDeDigitos(texto)) return comDecimais(*digitos);
        return interpretarNumero(texto);
    case Tipo::DeData:
        return interpretarData(texto);
    case Tipo::SemConversao:
        break;
    }
    return valor_;
}

Valor CampoRemessa::interpretarNumero(VistaTexto texto) const {
    if (!ehNumerico(texto)) throw naoLido("leitura.numero"_t, texto, "Campo numérico inválido"_t);
    return comDecimais(lerNumero(texto));
}

double CampoRemessa::comDecimais(double digitos) const noexcept {
    return numeroDecimais_ == 0 ? digitos : digitos / potenciaDeDez(numeroDecimais_);
}

Valor CampoRemessa::interpretarData(VistaTexto texto) const {
    const bool zerada = texto.size() == formato_.size() && std::ranges::all_of(texto, [](char c) { return c == '0'; });
    if (zerada || semBrancos(texto).empty()) return Valor::Nulo();
    std::optional<Data> data;
    if (formato_ != "ADDD"_t) {
        data = Diversos::lerDataDoFormato(texto, formato_);
    } else if (const auto juliana =
                   Diversos::String2Data(texto, formato_, registroPai_ ? registroPai_->anoCorrente() : 0)) {
        // The date is written month first and read day first, so that day and month are swapped up to the 12th. Kept on
        // purpose, the test `dataJulianaTrocaDiaEMes` holds it.
        data = lerData(formatarData(*juliana, "MM/DD/YYYY"_t));
    }
    if (!data) throw naoLido("leitura.data"_t, texto, "Campo data inválido"_t);
    return *data;
}

FalhaDeLeitura CampoRemessa::naoLido(VistaTexto id, VistaTexto texto, VistaTexto motivo) const {
    return {id, Falha(numeroDeFalha::geral, "CampoRemessa"_t, junta("Campo="_t, nome_, " - "_t, motivo)),
            CampoDoAchado{.nome = nome_, .inicio = inicio_, .fim = fim_, .encontrado = Texto(texto), .esperado = {}}};
}

Texto CampoRemessa::gerarTexto() {
    const auto largura = static_cast<std::size_t>(std::max<std::int16_t>(tamanho_, 0));
    switch (tipo_) {
    case Tipo::DeTexto:
        if (valor_.nulo()) valor_ = Texto();
        return alinhamento_ == 1 ? Diversos::padL(valor_.texto(), largura) : Diversos::padR(valor_.texto(), largura);
    case Tipo::DeNumero:
        return Diversos::padL(gerarNumero(), largura, '0');
    case Tipo::DeData:
        return gerarData();
    case Tipo::DeContador:
        return gerarContador();
    case Tipo::SemConversao:
        break;
    }
    return {};
}

Texto CampoRemessa::gerarNumero() {
    const Texto* texto = valor_.comoTexto();
    if (valor_.nulo() || valor_.comoData() || (texto && !ehNumerico(*texto))) valor_ = 0;
    const double inteiro = std::floor(valor_.paraDuplo() * potenciaDeDez(numeroDecimais_));
    if (!std::isfinite(inteiro)) throw Falha(numeroDeFalha::estouro, "CampoRemessa"_t, "Estouro"_t);
    return textoDoNumero(inteiro + 0.0); // adding 0.0 turns -0 into 0
}

Texto CampoRemessa::gerarData() const {
    const Data* data = valor_.comoData();
    if (!data) return Texto(formato_.size(), '0');
    if (formato_ == "ADDD"_t) return Diversos::Data2Juliana(*data);
    return formatarData(*data, substituirCaractere(formato_, 'A', 'Y'));
}

Texto CampoRemessa::gerarContador() const {
    const ArquivoRemessa* arquivo = registroPai_ ? registroPai_->ArquivoRemessa() : nullptr;
    const Texto contador = textoDe(arquivo ? arquivo->contador() : 0);
    if (contador.size() > static_cast<std::size_t>(std::max<std::int16_t>(tamanho_, 0)))
        throw Falha(numeroDeFalha::argumentoInvalido, "CampoRemessa"_t, "Argumento inválido"_t);
    return Diversos::padL(contador, static_cast<std::size_t>(tamanho_), '0');
}

CampoRemessa CampoRemessa::copia() const {
    CampoRemessa nova(*this);
    nova.inicio_ = 0;
    nova.fim_ = 0;
    nova.registroPai_ = nullptr;
    return nova;
}

Texto CampoRemessa::substituirCaractere(VistaTexto texto, char de, char para) {
    Texto resultado(texto);
    std::ranges::replace(resultado, de, para);
    return resultado;
}

} // namespace quilatador

#include "validator/DataNaBarra.h"

#include "common/Diversos.h"

#include <algorithm>

namespace quilatador {

namespace {

Texto escrever(const Data& data, VistaTexto formato) {
    if (formato == "ADDD"_t) return Diversos::Data2Juliana(data, "YNNN"_t);
    if (formato == "DDDA"_t) return Diversos::Data2Juliana(data, "NNNY"_t);
    if (formato == "AADDD"_t) return Diversos::Data2Juliana(data, "YYNNN"_t);
    Texto comSimbolos(formato);
    std::ranges::replace(comSimbolos, 'A', 'Y');
    return formatarData(data, comSimbolos);
}

} // namespace

void DataNaBarra::parcela(VistaTexto barra, const Data& vencimento) {
    ++parcelas_;
    const Escritas& escritas = escritasDe(vencimento);
    for (std::size_t f = 0; f < escritas.size(); ++f) {
        const VistaTexto data = escritas[f];
        if (data.empty()) continue;
        const int cabe = campoLivre::ultimaPosicaoPara(static_cast<int>(data.size()));
        const auto ultima = static_cast<std::size_t>(std::min(cabe, campoLivre::ultimaPosicao)) - 1;
        constexpr std::size_t primeira = campoLivre::primeiraPosicao - 1;
        // A search skips the places that cannot match, which is most of them.
        for (std::size_t p = barra.find(data, primeira); p <= ultima; p = barra.find(data, p + 1))
            ++acertos_[f][p - primeira];
    }
}

void DataNaBarra::somar(const DataNaBarra& outra) noexcept {
    parcelas_ += outra.parcelas_;
    for (std::size_t f = 0; f < acertos_.size(); ++f)
        for (std::size_t p = 0; p < posicoes; ++p)
            acertos_[f][p] += outra.acertos_[f][p];
}

const DataNaBarra::Escritas& DataNaBarra::escritasDe(const Data& data) {
    constexpr std::size_t maisDatas = 4096; // far more than a remittance has; the memory must not grow with the file
    if (escritas_.size() >= maisDatas && !escritas_.contains(numeroDeSerie(data))) escritas_.clear();
    const auto [lugar, nova] = escritas_.try_emplace(numeroDeSerie(data));
    for (std::size_t f = 0; nova && f < formatosDeData.size(); ++f) {
        const VistaTexto formato = formatosDeData[f].formato;
        Texto texto = escrever(data, formato);
        if (Diversos::String2Data(texto, formato, anoCorrente_) == data) lugar->second[f] = std::move(texto);
    }
    return lugar->second;
}

std::int64_t DataNaBarra::acertos(VistaTexto formato, int posicao) const noexcept {
    const auto f = std::ranges::find(formatosDeData, formato, &FormatoDeData::formato);
    if (f == formatosDeData.end() || posicao < campoLivre::primeiraPosicao || posicao > campoLivre::ultimaPosicao)
        return 0;
    return acertos_[static_cast<std::size_t>(f - formatosDeData.begin())]
                   [static_cast<std::size_t>(posicao - campoLivre::primeiraPosicao)];
}

std::vector<DataNaBarra::Candidata> DataNaBarra::melhores(VistaTexto preferido) const {
    std::vector<Candidata> candidatas;
    std::int64_t mais = 1;
    for (const FormatoDeData& f : formatosDeData)
        for (int posicao = campoLivre::primeiraPosicao; posicao <= campoLivre::ultimaPosicao; ++posicao) {
            const std::int64_t quantas = acertos(f.formato, posicao);
            if (quantas < mais) continue;
            if (quantas > mais) candidatas.clear();
            mais = quantas;
            candidatas.push_back({f.formato, posicao, quantas});
        }
    std::stable_partition(candidatas.begin(), candidatas.end(),
                          [&](const Candidata& c) { return c.formato == preferido; });
    return candidatas;
}

} // namespace quilatador

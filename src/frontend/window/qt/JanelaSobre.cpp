#include "frontend/window/qt/JanelaSobre.h"

#include "frontend/window/qt/Controles.h"
#include "frontend/window/qt/Conversoes.h"
#include "run/Painel.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSvgWidget>
#include <QVBoxLayout>

namespace quilatador {

using namespace Qt::StringLiterals;

namespace {

QFrame* novaLinha(const char* nome) {
    auto* linha = novoControle<QFrame>(nome);
    linha->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    return linha;
}

QLabel* novoTitulo() {
    auto* titulo = novoControle<QLabel>("lblTitle", paraQt(tituloDoPrograma));
    QFont fonte = titulo->font();
    fonte.setPointSizeF(fonte.pointSizeF() * 1.25);
    fonte.setBold(true);
    titulo->setFont(fonte);
    return titulo;
}

QLabel* novaDescricao() {
    auto* descricao = novoControle<QLabel>(
        "lblDescription",
        u"A Solvara desenvolveu este aplicativo para a análise dos arquivos ZUL702, ZUL708 e TAV001."_s);
    descricao->setWordWrap(true);
    return descricao;
}

} // namespace

JanelaSobre::JanelaSobre(VistaTexto versao, QWidget* dono) : QDialog(dono) {
    setObjectName(u"frmSobre"_s);
    setWindowTitle(u"Sobre o Quilatador..."_s);

    auto* logo = novoControle<QSvgWidget>("Image1", u":/logo.svg"_s);
    const int lado = 5 * fontMetrics().height();
    logo->setFixedSize(lado, lado);
    descrever(logo, u"Logotipo"_s);
    auto* textos = new QVBoxLayout;
    textos->setSpacing(fontMetrics().height() / 2);
    textos->addWidget(novoTitulo());
    textos->addWidget(novoControle<QLabel>("lblVersion", paraQt(versao)));
    textos->addWidget(novaLinha("Line1"));
    textos->addWidget(novaDescricao());
    auto* corpo = new QHBoxLayout;
    corpo->setSpacing(2 * fontMetrics().height());
    corpo->addWidget(logo, 0, Qt::AlignTop);
    corpo->addLayout(textos, 1);

    auto* cmdOk = novoControle<QPushButton>("cmdOk", u"OK"_s);
    cmdOk->setDefault(true);
    cmdOk->setAccessibleName(cmdOk->text());
    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);
    auto* rodape = new QHBoxLayout;
    rodape->addWidget(novoControle<QLabel>("lblSuporte", u"Suporte técnico Solvara: 0800 000 0100"_s), 1);
    rodape->addWidget(cmdOk);

    auto* janela = new QVBoxLayout(this);
    const int respiro = 2 * janela->spacing();
    janela->setSpacing(respiro);
    janela->setContentsMargins(respiro, respiro, respiro, respiro);
    janela->setSizeConstraint(QLayout::SetFixedSize);
    janela->addLayout(corpo);
    janela->addWidget(novaLinha("Line2"));
    janela->addLayout(rodape);
}

} // namespace quilatador

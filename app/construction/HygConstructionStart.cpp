#include "construction/HygConstructionStart.h"

#include "HygIconEngine.h"

#include <QtExt/Palette.h>

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPushButton>

HygConstructionStart::HygConstructionStart(QWidget * parent)
    : QFrame(parent), m_title(new QLabel(this)), m_text(new QLabel(this)), m_layer(new QPushButton(this)),
      m_detail(new QPushButton(this)), m_hint(new QLabel(this)) {
    setObjectName(QStringLiteral("constructionStart"));
    auto * outer = new QVBoxLayout(this);
    auto * inner = new QVBoxLayout;
    inner->setSpacing(14);
    outer->addStretch(2);
    outer->addLayout(inner);
    outer->addStretch(3);
    auto * picture = new QLabel(this);
    picture->setPixmap(HygIconEngine::icon(QStringLiteral("construction")).pixmap(64, 64));
    picture->setAlignment(Qt::AlignCenter);
    inner->addWidget(picture);
    for (QLabel * label : {m_title, m_text, m_hint}) {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
    }
    inner->addWidget(m_title);
    inner->addWidget(m_text);
    auto * buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(m_layer);
    buttons->addWidget(m_detail);
    buttons->addStretch();
    inner->addLayout(buttons);
    inner->addWidget(m_hint);
    m_layer->setObjectName(QStringLiteral("startLayer"));
    m_layer->setDefault(true);
    m_layer->setIcon(HygIconEngine::icon(QStringLiteral("layer_add")));
    m_detail->setObjectName(QStringLiteral("startDetail"));
    m_detail->setIcon(HygIconEngine::icon(QStringLiteral("gridlines")));
    connect(m_layer, &QPushButton::clicked, this, &HygConstructionStart::layerRequested);
    connect(m_detail, &QPushButton::clicked, this, &HygConstructionStart::detailRequested);
    retranslate();
}

void HygConstructionStart::retranslate() {
    QFont big = font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    m_title->setFont(big);
    m_title->setText(tr("Draw your construction"));
    m_text->setText(
        tr("A wall or roof is a stack of layers, from the outside on the left to the inside on the right."));
    m_layer->setText(tr("Add the first layer ..."));
    m_layer->setToolTip(tr("Choose a material and its thickness; the cells are made for you"));
    m_detail->setText(tr("Draw a 2D detail"));
    m_detail->setToolTip(tr("Start with a grid of 6 x 6 cells of 100 mm, for corners, reveals and slab edges"));
    m_hint->setText(tr("Everything you do here can be undone."));
    QPalette faint = palette();
    faint.setColor(QPalette::WindowText, QtExt::Palette::color(QtExt::Palette::MUTED_TEXT));
    m_hint->setPalette(faint);
}

void HygConstructionStart::changeEvent(QEvent * event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::FontChange)
        retranslate();
}

#include "HygMessageBar.h"

#include "HygIconEngine.h"
#include "HygLogModel.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

HygMessageBar::HygMessageBar(QWidget * parent)
    : QFrame(parent), m_icon(new QLabel(this)), m_text(new QLabel(this)), m_close(new QToolButton(this)) {
    setObjectName(QStringLiteral("messageBar"));
    auto * layout = new QHBoxLayout(this);
    layout->setContentsMargins(14, 8, 8, 8);
    layout->setSpacing(10);
    layout->addWidget(m_icon, 0, Qt::AlignTop);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_close, 0, Qt::AlignTop);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_close->setAutoRaise(true);
    m_close->setIcon(HygIconEngine::icon(QStringLiteral("close")));
    connect(m_close, &QToolButton::clicked, this, &HygMessageBar::clear);
    updateIcon();
    retranslate();
    hide();
}

void HygMessageBar::showMessage(const QString & text) {
    if (m_messages.contains(text))
        return;
    m_messages << text;
    while (m_messages.size() > MAX_MESSAGES)
        m_messages.removeFirst(); // the log has them all
    m_text->setText(m_messages.join(QLatin1Char('\n')));
    m_text->setAccessibleName(m_text->text());
    show();
}

void HygMessageBar::clear() {
    m_messages.clear();
    m_text->clear();
    hide();
}

QString HygMessageBar::text() const {
    return m_text->text();
}

void HygMessageBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    QColor ground = HygLogModel::colourOf(HygLogModel::Warning);
    painter.fillRect(QRect(0, height() - 1, width(), 1), ground);
    ground.setAlphaF(0.16);
    painter.fillRect(rect(), ground);
}

void HygMessageBar::updateIcon() {
    m_icon->setPixmap(
        HygIconEngine::icon(QStringLiteral("warning"), HygLogModel::colourOf(HygLogModel::Warning)).pixmap(22, 22));
}

void HygMessageBar::retranslate() {
    m_close->setToolTip(tr("Close this message"));
    m_close->setAccessibleName(tr("Close this message"));
}

void HygMessageBar::changeEvent(QEvent * event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        updateIcon();
}

#include "HygNavigationBar.h"

#include "HygNavigationButton.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QPainter>

HygNavigationBar::HygNavigationBar(QWidget * parent)
    : QWidget(parent), m_group(new QButtonGroup(this)), m_views(new QVBoxLayout), m_tools(new QVBoxLayout) {
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 1, 6);
    layout->setSpacing(0);
    for (QVBoxLayout * part : {m_views, m_tools}) {
        part->setSpacing(2);
        layout->addLayout(part);
    }
    layout->insertStretch(1, 1);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    connect(m_group, &QButtonGroup::idClicked, this, &HygNavigationBar::selected);
}

HygNavigationButton & HygNavigationBar::addView(int id, const QString & iconName) {
    auto * button = new HygNavigationButton(iconName, this);
    button->setCheckable(true);
    m_group->addButton(button, id);
    const auto place = m_buttons.emplace(id, button).first;
    m_views->insertWidget(static_cast<int>(std::distance(m_buttons.begin(), place)), button);
    return *button;
}

HygNavigationButton & HygNavigationBar::addTool(const QString & iconName) {
    auto * button = new HygNavigationButton(iconName, this);
    m_tools->addWidget(button);
    return *button;
}

void HygNavigationBar::setCurrent(int id) {
    if (QAbstractButton * button = m_group->button(id))
        button->setChecked(true);
}

void HygNavigationBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.16);
    painter.fillRect(width() - 1, 0, 1, height(), edge);
}

#include "materials/HygMaterialForm.h"

#include <QtExt/Palette.h>

#include <QEvent>
#include <QGridLayout>

namespace {
constexpr int LABEL_WIDTH = 300;
} // namespace

HygMaterialForm::HygMaterialForm(QWidget * parent) : QScrollArea(parent) {
    auto * content = new QWidget(this);
    content->setAutoFillBackground(false);
    m_grid = new QGridLayout;
    m_grid->setColumnMinimumWidth(0, LABEL_WIDTH);
    m_grid->setColumnStretch(1, 1);
    m_grid->setColumnMinimumWidth(1, 200);
    m_grid->setHorizontalSpacing(14);
    m_grid->setVerticalSpacing(6);
    auto * layout = new QVBoxLayout(content);
    layout->addLayout(m_grid);
    layout->addStretch(1);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    updateColors();
}

QLabel & HygMaterialForm::addHeading() {
    auto * heading = new QLabel(widget());
    heading->setContentsMargins(0, m_headings.empty() ? 0 : 12, 0, 2);
    m_grid->addWidget(heading, m_grid->rowCount(), 0, 1, 2);
    m_headings.push_back(heading);
    updateColors();
    return *heading;
}

QLabel & HygMaterialForm::addField(const QString & keyword, QWidget * field) {
    const int row = m_grid->rowCount();
    auto * label = new QLabel(widget());
    auto * finding = new QLabel(widget());
    label->setWordWrap(true);
    label->setMaximumWidth(LABEL_WIDTH);
    label->setBuddy(field);
    field->setObjectName(keyword);
    finding->setObjectName(QStringLiteral("finding_") + keyword);
    finding->setWordWrap(true);
    finding->hide();
    m_grid->addWidget(label, row, 0);
    m_grid->addWidget(field, row, 1);
    m_grid->addWidget(finding, row + 1, 1);
    m_fields[keyword] = {label, field, finding};
    updateColors();
    return *label;
}

void HygMaterialForm::setFindings(const std::map<QString, QString> & findings) {
    for (const auto & [keyword, field] : m_fields) {
        const auto found = findings.find(keyword);
        field.finding->setText(found == findings.end() ? QString() : found->second);
        field.finding->setVisible(found != findings.end() && field.field->isVisibleTo(widget()));
        field.field->setAccessibleDescription(field.finding->text());
    }
}

void HygMaterialForm::showField(const QString & keyword) {
    const auto found = m_fields.find(keyword);
    if (found == m_fields.end())
        return;
    ensureWidgetVisible(found->second.field);
    found->second.field->setFocus(Qt::OtherFocusReason);
}

void HygMaterialForm::setFieldVisible(const QString & keyword, bool isVisible) {
    const Field & field = m_fields.at(keyword);
    field.label->setVisible(isVisible);
    field.field->setVisible(isVisible);
    field.finding->setVisible(isVisible && !field.finding->text().isEmpty());
}

void HygMaterialForm::updateColors() {
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    for (QLabel * heading : m_headings)
        heading->setFont(bold);
    QPalette warning;
    warning.setColor(QPalette::WindowText, QtExt::Palette::color(QtExt::Palette::WARNING_TEXT));
    for (const auto & [keyword, field] : m_fields)
        field.finding->setPalette(warning);
}

void HygMaterialForm::changeEvent(QEvent * event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        updateColors();
}

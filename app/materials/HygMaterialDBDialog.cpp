#include "materials/HygMaterialDBDialog.h"

#include "materials/HygMaterialDBWidget.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QPushButton>

HygMaterialDBDialog::HygMaterialDBDialog(std::shared_ptr<HygMaterialDB> database, const QString & title,
                                         QWidget * parent)
    : QDialog(parent), m_widget(new HygMaterialDBWidget(std::move(database), this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
    setObjectName(QStringLiteral("materialChoice"));
    setWindowTitle(title);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto * layout = new QVBoxLayout(this);
    layout->addWidget(m_widget, 1);
    layout->addWidget(m_buttons);
    const auto update = [this] { m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!path().isEmpty()); };
    connect(m_widget, &HygMaterialDBWidget::currentChanged, this, update);
    connect(m_widget, &HygMaterialDBWidget::activated, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    update();
    resize(1040, 620);
}

QString HygMaterialDBDialog::path() const {
    const QStringList selected = m_widget->selectedPaths();
    return selected.contains(m_widget->currentPath()) ? m_widget->currentPath() : QString();
}

QString HygMaterialDBDialog::choose(const QString & title, QWidget * parent, const QString & search) {
    HygMaterialDBDialog dialog(HygMaterialDB::shared(), title, parent);
    dialog.m_widget->setSearch(search);
    return dialog.exec() == QDialog::Accepted ? dialog.path() : QString();
}

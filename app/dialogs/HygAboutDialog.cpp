#include "HygAboutDialog.h"

#include "HygIconEngine.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>

namespace {

struct LibraryRow {
    const char * name;
    const char * licence;
};
constexpr LibraryRow LIBRARIES[] = {
    {"Qt 5",    "LGPL-3.0"},
    {"TinyXML", "Zlib"    },
};

} // namespace

QString HygAboutDialog::versions() {
    return QStringLiteral("%1 (%2)\nQt %3\n%4, %5\n")
        .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion(), QLatin1String(qVersion()),
             QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture());
}

HygAboutDialog::HygAboutDialog(QWidget * parent) : QDialog(parent) {
    setWindowTitle(tr("About %1").arg(QCoreApplication::applicationName()));
    auto * layout = new QHBoxLayout(this);
    layout->setSpacing(20);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto * logo = new QLabel(this);
    logo->setPixmap(QIcon(QStringLiteral(":/gfx/hygrion_icon_black_256x256.png")).pixmap(96, 96));
    layout->addWidget(logo, 0, Qt::AlignTop);
    auto * texts = new QVBoxLayout;
    layout->addLayout(texts);

    auto * title = new QLabel(QCoreApplication::applicationName(), this);
    QFont titleFont = font();
    titleFont.setPointSizeF(font().pointSizeF() * 1.8);
    titleFont.setBold(true);
    title->setFont(titleFont);
    texts->addWidget(title);

    QString libraries;
    for (const LibraryRow & row : LIBRARIES)
        libraries += QStringLiteral("%1 (%2)<br/>").arg(QLatin1String(row.name), QLatin1String(row.licence));
    auto * text = new QLabel(QStringLiteral("<p>%1</p><p>%2</p><p>%3<br/>%4</p>")
                                 .arg(tr("A workbench for heat and moisture in building components.").toHtmlEscaped(),
                                      tr("Free software under the Apache License, version 2.0.").toHtmlEscaped(),
                                      tr("It stands on these libraries:").toHtmlEscaped(), libraries),
                             this);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    texts->addWidget(text);
    auto * system = new QLabel(versions().trimmed(), this);
    system->setForegroundRole(QPalette::PlaceholderText);
    system->setTextInteractionFlags(Qt::TextSelectableByMouse);
    texts->addWidget(system);
    texts->addSpacing(8);

    auto * buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton * copy = buttons->addButton(tr("&Copy versions"), QDialogButtonBox::ActionRole);
    copy->setIcon(HygIconEngine::icon(QStringLiteral("copy")));
    connect(copy, &QPushButton::clicked, this, [] { QApplication::clipboard()->setText(versions()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    texts->addWidget(buttons);
}

#include "dialogs/HygRecoveryDialog.h"

#include "HygFormat.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>

namespace {

QString shown(const QDateTime & date) {
    return HygFormat::dateTime(date, true);
}

/// The path with "~" for the home directory.
QString shown(const QString & path) {
    const QString home = QDir::homePath() + QLatin1Char('/');
    return QDir::toNativeSeparators(path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size()) : path);
}

} // namespace

HygRecoveryDialog::HygRecoveryDialog(std::vector<HygJournal::Entry> entries, QWidget * parent)
    : QDialog(parent), m_entries(std::move(entries)), m_list(new QTreeWidget(this)), m_hint(new QLabel(this)) {
    setObjectName(QStringLiteral("recoveryDialog"));
    setWindowTitle(tr("Unsaved changes found"));
    auto * heading =
        new QLabel(tr("The program ended before these changes were saved. What do you want to open?"), this);
    heading->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("journals"));
    m_list->setAccessibleName(windowTitle());
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setHeaderLabels({tr("Project"), tr("Saved file of"), tr("Unsaved changes of"), tr("Changes")});
    m_list->setMinimumSize(640, 110);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_hint->setObjectName(QStringLiteral("hint"));
    m_hint->setWordWrap(true);
    m_hint->setMinimumHeight(2 * m_hint->fontMetrics().lineSpacing());
    m_hint->setAlignment(Qt::AlignTop | Qt::AlignLeft);

    auto * layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_hint);
    auto * buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    auto * remove = new QPushButton(tr("&Delete changes…"), this);
    remove->setObjectName(QStringLiteral("deleteChanges"));
    remove->setAutoDefault(false);
    remove->setToolTip(tr("Give these unsaved changes up for good"));
    connect(remove, &QPushButton::clicked, this, &HygRecoveryDialog::discard);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    m_openRecovered =
        addChoice("openRecovered", tr("Open &unsaved changes"),
                  tr("Go on where the program ended; saving writes the changes into the file"), OpenRecovered);
    m_openFile = addChoice("openFile", tr("Open saved &file"),
                           tr("Open the project as it was saved last; the unsaved changes stay kept"), OpenFile);
    m_openBoth =
        addChoice("openBoth", tr("Open &both"),
                  tr("Open the unsaved changes here and the saved file in a second window, to compare"), OpenBoth);
    QPushButton * later = addChoice("later", tr("&Later"), tr("Decide at the next start; nothing is lost"), Later);
    for (QPushButton * button : {m_openRecovered, m_openFile, m_openBoth, later})
        buttons->addWidget(button);
    m_openRecovered->setDefault(true);

    connect(m_list, &QTreeWidget::currentItemChanged, this, &HygRecoveryDialog::updateOffers);
    connect(m_list, &QTreeWidget::itemActivated, m_openRecovered, &QPushButton::click);
    fill();
}

QPushButton * HygRecoveryDialog::addChoice(const char * name, const QString & text, const QString & toolTip,
                                           choice_t choice) {
    auto * button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    connect(button, &QPushButton::clicked, this, [this, choice] {
        m_choice = choice;
        done(choice == Later ? Rejected : Accepted);
    });
    return button;
}

const HygJournal::Entry & HygRecoveryDialog::entry() const {
    return m_entries.at(static_cast<std::size_t>(std::max(0, m_list->indexOfTopLevelItem(m_list->currentItem()))));
}

void HygRecoveryDialog::fill() {
    m_list->clear();
    for (const HygJournal::Entry & entry : m_entries) {
        const QFileInfo file(entry.projectFile);
        auto * item = new QTreeWidgetItem(m_list, {file.completeBaseName(),
                                                   file.exists() ? shown(file.lastModified()) : tr("missing"),
                                                   shown(entry.journalDate), QString::number(entry.changes)});
        item->setToolTip(0, QDir::toNativeSeparators(entry.projectFile));
        item->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    }
    m_list->setCurrentItem(m_list->topLevelItem(0));
    updateOffers();
}

void HygRecoveryDialog::updateOffers() {
    if (m_list->currentItem() == nullptr)
        return;
    const QFileInfo file(entry().projectFile);
    m_openFile->setEnabled(file.exists());
    m_openBoth->setEnabled(file.exists());
    QString hint = shown(entry().projectFile);
    if (!file.exists())
        hint += '\n' + tr("The file does not exist any more; saving makes it anew.");
    else if (entry().fileDate.isValid() && file.lastModified() > entry().fileDate.addSecs(1))
        hint += '\n' + tr("The file was saved again after these changes had begun. Compare before you save.");
    m_hint->setText(hint);
}

void HygRecoveryDialog::discard() {
    QMessageBox box(
        QMessageBox::Warning, windowTitle(),
        tr("Delete the unsaved changes of project '%1'?").arg(QFileInfo(entry().projectFile).completeBaseName()),
        QMessageBox::Yes | QMessageBox::No, this);
    box.setObjectName(QStringLiteral("deleteQuestion"));
    box.setInformativeText(tr("They cannot be brought back."));
    box.setDefaultButton(QMessageBox::No);
    if (box.exec() != QMessageBox::Yes)
        return;
    emit discarded(entry());
    m_entries.erase(m_entries.begin() + m_list->indexOfTopLevelItem(m_list->currentItem()));
    if (m_entries.empty())
        return reject();
    fill();
}

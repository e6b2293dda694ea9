#include "materials/HygMaterialEditor.h"

#include "HygIconEngine.h"
#include "document/HygBackground.h"
#include "materials/HygMaterialChart.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygMaterialFindings.h"
#include "materials/HygMaterialFunctionPage.h"
#include "materials/HygMaterialIdentityForm.h"
#include "materials/HygMaterialMeasuredTable.h"
#include "materials/HygMaterialModelPage.h"
#include "materials/HygMaterialParameterForm.h"
#include "materials/HygMaterialTable.h"
#include "materials/HygMaterialTexts.h"
#include "views/HygLogModel.h"
#include "views/HygMessageBar.h"

#include <QtExt/MessageBox.h>

#include <KOR/Exception.h>
#include <KOR/Path.h>

#include <QApplication>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>

namespace {

constexpr int HEIGHT = 660;
constexpr int WIDTH = 980;
constexpr int FIELD_ROLE = Qt::UserRole;

QDateTime timeOf(const std::string & path) {
    return QFileInfo(QString::fromStdString(path)).lastModified();
}

} // namespace

HygMaterialEditor::HygMaterialEditor(HygMaterialDB & database, MM::Material material, QWidget * parent)
    : QDialog(parent), m_database(database), m_document(std::move(material)),
      m_fileTime(timeOf(m_document.material().m_path)),
      m_isReadOnly(database.isBuiltIn(QString::fromStdString(m_document.material().m_path))),
      m_messages(new HygMessageBar(this)), m_lock(new QLabel(this)), m_pages(new QTabWidget(this)),
      m_identity(new HygMaterialIdentityForm(m_document, this)),
      m_parameters(new HygMaterialParameterForm(m_document, this)),
      m_functions(new HygMaterialFunctionPage(m_document, this)), m_models(new HygMaterialModelPage(m_document, this)),
      m_measured(new HygMaterialMeasuredTable(m_document, this)),
      m_measuredTable(new HygMaterialTable(*m_measured, QStringLiteral("measuredTable"), this)),
      m_curves(new HygMaterialChart(this)), m_findingsTitle(new QLabel(this)), m_findings(new QListWidget(this)),
      m_undo(new QToolButton(this)), m_redo(new QToolButton(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Close, this)) {
    setObjectName(QStringLiteral("materialEditor"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setUp();
    connect(&m_document, &HygMaterialDocument::checked, this, &HygMaterialEditor::showFindings);
    connect(&m_document, &HygMaterialDocument::changed, this, &HygMaterialEditor::updateTitle);
    connect(&m_document.undoStack(), &QUndoStack::cleanChanged, this, &HygMaterialEditor::updateTitle);
    connect(m_functions, &HygMaterialFunctionPage::refused, m_messages, &HygMessageBar::showMessage);
    // What was wrong with an entry is history with the next one.
    connect(&m_document, &HygMaterialDocument::changed, m_messages, &HygMessageBar::clear);
    connect(m_models, &HygMaterialModelPage::refused, m_messages, &HygMessageBar::showMessage);
    connect(m_measured, &HygMaterialMeasuredTable::refused, m_messages, &HygMessageBar::showMessage);
    connect(m_measuredTable, &HygMaterialTable::refused, m_messages, &HygMessageBar::showMessage);
    retranslate();
    showFindings();
    resize(WIDTH, HEIGHT);
}

HygMaterialEditor::~HygMaterialEditor() {
    hide(); // a field that loses the focus ends its editing, which needs the document
}

void HygMaterialEditor::setUp() {
    m_pages->setObjectName(QStringLiteral("materialPages"));
    for (QWidget * page :
         {static_cast<QWidget *>(m_identity), static_cast<QWidget *>(m_parameters), static_cast<QWidget *>(m_functions),
          static_cast<QWidget *>(m_models), static_cast<QWidget *>(m_measuredTable), static_cast<QWidget *>(m_curves)})
        m_pages->addTab(page, QString());
    connect(m_pages, &QTabWidget::currentChanged, this, &HygMaterialEditor::showCurves);
    m_lock->setObjectName(QStringLiteral("materialLock"));
    m_lock->setVisible(m_isReadOnly);
    m_lock->setForegroundRole(QPalette::PlaceholderText);
    m_findings->setObjectName(QStringLiteral("materialFindings"));
    m_findings->setMaximumHeight(96);
    m_findings->setWordWrap(true);
    m_findings->setUniformItemSizes(false);
    m_findingsTitle->setObjectName(QStringLiteral("materialFindingsTitle"));
    connect(m_findings, &QListWidget::itemClicked, this,
            [this](QListWidgetItem * item) { goToFinding(m_findings->row(item)); });
    connect(m_findings, &QListWidget::itemActivated, this,
            [this](QListWidgetItem * item) { goToFinding(m_findings->row(item)); });

    QUndoStack & stack = m_document.undoStack();
    struct UndoRow {
        QToolButton * button;
        QAction * action;
        const char * icon;
        QKeySequence::StandardKey key;
    };
    const UndoRow rows[] = {
        {m_undo, stack.createUndoAction(this), "undo", QKeySequence::Undo},
        {m_redo, stack.createRedoAction(this), "redo", QKeySequence::Redo},
    };
    auto * bottom = new QHBoxLayout;
    for (const UndoRow & row : rows) {
        row.action->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        row.action->setShortcut(row.key);
        row.button->setDefaultAction(row.action);
        row.button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        row.button->setAutoRaise(true);
        row.button->setFocusPolicy(Qt::TabFocus);
        addAction(row.action);
        bottom->addWidget(row.button);
    }
    m_undo->setObjectName(QStringLiteral("materialUndo"));
    m_redo->setObjectName(QStringLiteral("materialRedo"));
    bottom->addWidget(m_lock, 1);
    bottom->addWidget(m_buttons, m_isReadOnly ? 0 : 1);
    connect(m_buttons->button(QDialogButtonBox::Save), &QPushButton::clicked, this, &HygMaterialEditor::save);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &HygMaterialEditor::reject);
    m_buttons->button(QDialogButtonBox::Save)->setShortcut(QKeySequence::Save);
    m_buttons->button(QDialogButtonBox::Save)->setDefault(false);
    m_buttons->button(QDialogButtonBox::Save)->setAutoDefault(false);
    m_buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);

    auto * layout = new QVBoxLayout(this);
    layout->addWidget(m_messages);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_findingsTitle);
    layout->addWidget(m_findings);
    layout->addLayout(bottom);
}

QString HygMaterialEditor::edit(HygMaterialDB & database, const QString & path, QWidget * parent) {
    QString edited = path;
    if (database.isBuiltIn(path)) {
        const QMessageBox::StandardButton answer = QtExt::MessageBox::ask(
            parent, {.id = QStringLiteral("EditBuiltInMaterial"),
                     .title = tr("Built-in material"),
                     .text = tr("The material is located in the built-in material database. Would you like to create a "
                                "copy and edit the duplicated material instead?"),
                     .buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                     .defaultButton = QMessageBox::Yes});
        if (answer != QMessageBox::Yes && answer != QMessageBox::No)
            return {};
        if (answer == QMessageBox::Yes)
            edited = database.copyToUser(path);
    }
    const auto material = std::make_shared<MM::Material>();
    HygBackground::run(tr("Reading the material"), [material, edited] { material->read(edited.toStdString()); });
    HygMaterialEditor editor(database, std::move(*material), parent);
    if (editor.isReadOnly())
        QtExt::MessageBox::inform(
            parent, QStringLiteral("MaterialWriteProtected"), tr("Write-protected material"),
            tr("The selected material file is write-protected, since it is part of the built-in material database. "
               "While "
               "you can inspect and even change properties of the material in the dialog, you may not save the "
               "changes. "
               "If you intend to create a modified version of the material, duplicate the material first!"));
    editor.exec();
    return editor.savedPath();
}

void HygMaterialEditor::takeOverFocus() {
    // A text that is being typed is taken when its field is left.
    if (QWidget * focus = QApplication::focusWidget(); focus != nullptr && isAncestorOf(focus)) {
        focus->clearFocus();
        focus->setFocus(Qt::OtherFocusReason);
    }
}

bool HygMaterialEditor::save() {
    takeOverFocus();
    if (m_isReadOnly)
        return false;
    const MM::Material & material = m_document.material();
    QString path = QString::fromStdString(material.m_path);
    try {
        if (path.isEmpty()) {
            KOR::Path(m_database.userDirectory().toStdString()).makePath();
            path = m_database.newPath(QString::fromStdString(material.name()), material.m_id);
        } else if (timeOf(material.m_path) != m_fileTime &&
                   QMessageBox::question(
                       this, tr("The file has changed"),
                       tr("The file '%1' was changed or removed by another program since it was read. "
                          "Replace it?")
                           .arg(QDir::toNativeSeparators(path))) != QMessageBox::Yes) {
            return false;
        }
        m_document.save(path);
    } catch (const KOR::Exception & ex) {
        ex.report();
        m_messages->showMessage(QString::fromUtf8(ex.what()));
        return false;
    }
    m_savedPath = QString::fromStdString(m_document.material().m_path);
    m_fileTime = timeOf(m_document.material().m_path);
    m_database.rescan();
    updateTitle();
    return true;
}

void HygMaterialEditor::reject() {
    takeOverFocus();
    if (!m_document.undoStack().isClean() && !m_isReadOnly) {
        const auto answer =
            QMessageBox::question(this, tr("Unsaved changes"), tr("Save the changes of the material?"),
                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
        if (answer == QMessageBox::Cancel || answer == QMessageBox::NoButton ||
            (answer == QMessageBox::Save && !save()))
            return;
    }
    QDialog::reject();
}

void HygMaterialEditor::showFindings() {
    std::map<QString, QString> byField;
    m_findings->clear();
    const auto add = [&](const QString & text, const QString & field, HygLogModel::kind_t kind) {
        const QString label = HygMaterialFindings::label(field); // the check has names of its own for some
        auto * item =
            new QListWidgetItem(HygIconEngine::icon(HygLogModel::iconOf(kind), HygLogModel::colourOf(kind)),
                                label.isEmpty() ? text : QStringLiteral("%1 → %2").arg(text, label), m_findings);
        item->setData(FIELD_ROLE, field);
        if (field.isEmpty() || kind == HygLogModel::Information)
            return;
        QString & all = byField[field];
        all += (all.isEmpty() ? QString() : QStringLiteral("\n")) + text;
    };
    if (!m_document.refusal().isEmpty())
        add(tr("Cannot be saved: %1").arg(m_document.refusal()), {}, HygLogModel::Error);
    for (const MM::Finding & finding : m_document.findings())
        add(HygMaterialFindings::text(finding), HygMaterialFindings::field(finding),
            finding.isFault ? HygLogModel::Warning : HygLogModel::Information);
    if (!m_document.unusable().isEmpty())
        add(tr("A calculation cannot use it: %1").arg(m_document.unusable()), {}, HygLogModel::Warning);
    for (int row = 0; row < HygMaterialFunctions::numRows(); ++row)
        for (int direction = 0; direction < 3; ++direction) {
            const auto & spline = HygMaterialFunctions::spline(m_document.material(), {row, direction});
            const QString keyword = QLatin1String(HygMaterialFunctions::row(row).keyword);
            if (!spline.empty() && !spline.valid())
                byField[keyword] += tr("The x values must increase from row to row.");
            if (const QString slope = HygMaterialFindings::slope(keyword, spline); !slope.isEmpty())
                add(slope, keyword, HygLogModel::Warning);
        }
    m_findings->setVisible(m_findings->count() > 0);
    m_findingsTitle->setText(m_findings->count() == 0 ? tr("The check of the material has no findings.")
                                                      : tr("Findings of the check: %1").arg(m_findings->count()));
    m_parameters->setFindings(byField);
    m_functions->setFindings(byField);
    m_buttons->button(QDialogButtonBox::Save)->setEnabled(!m_isReadOnly && m_document.refusal().isEmpty());
    showCurves();
}

void HygMaterialEditor::goToFinding(int row) {
    const QString field = m_findings->item(row)->data(FIELD_ROLE).toString();
    if (m_parameters->hasField(field)) {
        m_pages->setCurrentIndex(Parameters);
        m_parameters->showField(field);
    } else if (m_functions->hasFunction(field)) {
        m_pages->setCurrentIndex(Functions);
        m_functions->showFunction(field);
    }
}

void HygMaterialEditor::showCurves() {
    if (m_pages->currentIndex() == Curves && m_document.prepared())
        m_curves->setMaterials({
            {m_document.prepared(),
             QString::fromStdString(m_document.material().name(HygMaterialTexts::language().toStdString()))}
        });
}

void HygMaterialEditor::updateTitle() {
    const QString name = QString::fromStdString(m_document.material().name(HygMaterialTexts::language().toStdString()));
    setWindowTitle(
        tr("%1[*] – material %2").arg(name.isEmpty() ? tr("New material") : name).arg(m_document.material().m_id));
    setWindowModified(!m_document.undoStack().isClean());
}

void HygMaterialEditor::retranslate() {
    m_pages->setTabText(Identity, tr("&General"));
    m_pages->setTabText(Parameters, tr("&Parameters"));
    m_pages->setTabText(Functions, tr("&Functions"));
    m_pages->setTabText(Models, tr("&Models"));
    m_pages->setTabText(Measured, tr("Measured &data"));
    m_pages->setTabText(Curves, tr("&Curves"));
    m_pages->setTabToolTip(Models, tr("Functions that are made out of a few parameters"));
    m_pages->setTabToolTip(Measured, tr("Results of experiments, kept in the file as they stand"));
    m_measuredTable->view().setAccessibleName(tr("Measured data"));
    m_pages->setTabToolTip(Curves, tr("The functions as a calculation uses them"));
    m_lock->setText(tr("Write-protected: duplicate the material to keep changes"));
    m_findings->setAccessibleName(tr("Findings of the check"));
    m_findings->setToolTip(tr("Click to see the field"));
    m_undo->setAccessibleName(tr("Undo"));
    m_redo->setAccessibleName(tr("Redo"));
    m_buttons->button(QDialogButtonBox::Save)
        ->setToolTip(tr("Write the material into its file (%1)")
                         .arg(QKeySequence(QKeySequence::Save).toString(QKeySequence::NativeText)));
    updateTitle();
    showFindings();
}

void HygMaterialEditor::changeEvent(QEvent * event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

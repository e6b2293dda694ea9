#include "HygPreferencesDialog.h"

#include "HygIconEngine.h"
#include "HygPreferencesTable.h"
#include "HygSettings.h"

#include <QtExt/ColorButton.h>
#include <QtExt/LanguageHandler.h>
#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/UnitList.h>

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <QToolButton>

using namespace HygPreferences;

namespace {

constexpr int MAX_HEIGHT = 700;        ///< fits a small notebook
constexpr int MAX_CONTENT_WIDTH = 900; ///< beyond it the contents are scrolled
constexpr int MARGIN = 8;
constexpr int LABEL_COLUMN = 0;
constexpr int EDITOR_COLUMN = 1;
constexpr int SMALLEST_FONT = 7;
constexpr int LARGEST_FONT = 24;

/// A text of the table.
QString translated(const char * text) {
    return QCoreApplication::translate("HygPreferences", text);
}

/// What the field holds, in the form of the settings; invalid for kinds that are no single value.
QVariant valueOf(const QWidget * editor) {
    if (const auto * box = qobject_cast<const QComboBox *>(editor))
        return box->currentData();
    if (const auto * lines = qobject_cast<const QPlainTextEdit *>(editor)) {
        QStringList texts;
        for (const QString & line : lines->toPlainText().split('\n'))
            if (!line.trimmed().isEmpty())
                texts << line.trimmed();
        return texts;
    }
    return editor->metaObject()->userProperty().read(editor);
}

void setValueOf(QWidget * editor, const QVariant & value) {
    if (auto * box = qobject_cast<QComboBox *>(editor)) {
        int index = box->findData(value.toString());
        if (index < 0) { // stored by hand or by another version
            index = box->count();
            box->addItem(value.toString(), value.toString());
        }
        box->setCurrentIndex(index);
    } else if (auto * lines = qobject_cast<QPlainTextEdit *>(editor)) {
        lines->setPlainText(value.toStringList().join('\n'));
    } else {
        editor->metaObject()->userProperty().write(editor, value);
    }
}

void addLengthUnits(QComboBox & box, bool byIndex) {
    const KOR::UnitList & list = KOR::UnitList::instance();
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list.retrieve(i).base == KOR::Unit("m").index()) {
            const QString name = QString::fromStdString(list.retrieve(i).name);
            box.addItem(name, byIndex ? QString::number(i) : name);
        }
}

QComboBox * makeComboBox(const Row & row) {
    auto * box = new QComboBox;
    if (row.kind == KIND_CHOICE) {
        for (const Choice & choice : CHOICES)
            if (qstrcmp(choice.key, row.key) == 0)
                box->addItem(QString(), QString::fromLatin1(choice.value));
    } else if (row.kind == KIND_FONT_SIZE) {
        box->addItem(QString(), QStringLiteral("0"));
        for (int size = SMALLEST_FONT; size <= LARGEST_FONT; ++size)
            box->addItem(QString::number(size), QString::number(size));
    } else {
        addLengthUnits(*box, row.kind == KIND_UNIT_INDEX);
    }
    return box;
}

QSpinBox * makeSpinBox(const QtExt::Settings::Row & range) {
    auto * box = new QSpinBox;
    box->setRange(static_cast<int>(range.min), static_cast<int>(range.max));
    return box;
}

void showZeroText(QSpinBox & box, const QString & text) {
    box.setSpecialValueText(text);
    box.updateGeometry(); // forgotten by the box
}

/// A button's text in the language in force, as message boxes show it.
QString answerText(int answer) {
    QMessageBox box;
    const QAbstractButton * button = box.addButton(static_cast<QMessageBox::StandardButton>(answer));
    return button == nullptr ? QString::number(answer) : button->text().remove('&');
}

/// Marks what a search has found.
void mark(QWidget & widget, bool found) {
    QPalette palette;
    if (found)
        palette.setColor(widget.backgroundRole(), QtExt::Palette::color(QtExt::Palette::FOUND_BASE));
    widget.setPalette(found ? palette : QPalette());
    widget.setAutoFillBackground(found);
}

} // namespace

HygPreferencesDialog::HygPreferencesDialog(HygSettings & settings, QtExt::LanguageHandler * languages, QWidget * parent)
    : QDialog(parent), m_settings(settings), m_languages(languages),
      m_languageBefore(languages == nullptr ? QString() : languages->langId()), m_search(new QLineEdit),
      m_groups(new QListWidget), m_scroll(new QScrollArea), m_nothingFound(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel |
                                     QDialogButtonBox::RestoreDefaults)) {
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setClearButtonEnabled(true);
    m_searchIcon = m_search->addAction(HygIconEngine::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    m_groups->setObjectName(QStringLiteral("groups"));
    m_groups->setIconSize({20, 20});
    m_groups->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_nothingFound->setObjectName(QStringLiteral("nothingFound"));
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);

    auto * layout = new QGridLayout(this);
    layout->setHorizontalSpacing(16);
    layout->addWidget(m_search, 0, 0, 1, 2);
    layout->addWidget(m_groups, 1, 0);
    layout->addWidget(m_scroll, 1, 1);
    layout->addWidget(m_buttons, 2, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    buildSections();

    connect(m_search, &QLineEdit::textChanged, this, &HygPreferencesDialog::setFilter);
    connect(m_groups, &QListWidget::currentRowChanged, this, &HygPreferencesDialog::showGroup);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &HygPreferencesDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &HygPreferencesDialog::reject);
    connect(m_buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &HygPreferencesDialog::apply);
    connect(m_buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            &HygPreferencesDialog::restoreDefaults);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });

    load();
    retranslate();
    m_groups->setCurrentRow(0);
    setMinimumHeight(420); // the width comes from the contents
    setMaximumHeight(MAX_HEIGHT);
    resize(840, 560);
}

void HygPreferencesDialog::buildSections() {
    auto * pages = new QWidget;
    auto * column = new QVBoxLayout(pages);
    column->setContentsMargins(0, 0, MARGIN, 0);
    column->setSpacing(18);
    column->addWidget(m_nothingFound);
    for (int group = 0; group < NUM_GROUPS; ++group) {
        auto * widget = new QWidget;
        auto * grid = new QGridLayout(widget);
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setVerticalSpacing(10);
        grid->setHorizontalSpacing(14);
        grid->setColumnStretch(EDITOR_COLUMN, 1);
        auto * title = new QLabel;
        grid->addWidget(title, 0, 0, 1, 2);
        m_sections.push_back({widget, title, grid});
        column->addWidget(widget);
        new QListWidgetItem(m_groups);
    }
    column->addStretch(1);
    for (const Row & row : ROWS)
        addField(row);
    m_scroll->setWidget(pages);
}

void HygPreferencesDialog::addField(const Row & row) {
    QWidget * editor = makeEditor(row);
    editor->setObjectName(QLatin1String(row.key));
    QWidget * container = editor;
    if (row.kind == KIND_FILE || row.kind == KIND_DIRECTORY)
        container = withBrowseButton(static_cast<QLineEdit *>(editor), row);
    // The wheel scrolls the page; it changes a value only where the user has put the focus.
    editor->installEventFilter(this);
    if (qobject_cast<QComboBox *>(editor) != nullptr || qobject_cast<QSpinBox *>(editor) != nullptr)
        editor->setFocusPolicy(Qt::StrongFocus);

    QGridLayout * grid = m_sections[row.group].grid;
    const int line = grid->rowCount();
    const bool isWide =
        container != editor || row.kind == KIND_LINES || row.kind == KIND_TEXT || row.kind == KIND_QUESTIONS;
    QLabel * label = nullptr;
    if (row.kind != KIND_FLAG) {
        label = new QLabel;
        label->setBuddy(editor);
        const bool isTall = row.kind == KIND_LINES || row.kind == KIND_QUESTIONS;
        grid->addWidget(label, line, LABEL_COLUMN, Qt::AlignLeft | (isTall ? Qt::AlignTop : Qt::AlignVCenter));
    }
    grid->addWidget(container, line, EDITOR_COLUMN, isWide ? Qt::Alignment() : Qt::AlignLeft);
    m_fields.push_back({&row, editor, container, label, {}});
}

QWidget * HygPreferencesDialog::makeEditor(const Row & row) {
    switch (row.kind) {
    case KIND_FLAG:
        return new QCheckBox;
    case KIND_COUNT:
        return makeSpinBox(*m_settings.find(QLatin1String(row.key)));
    case KIND_COLOR:
        return new QtExt::ColorButton;
    case KIND_CHOICE:
    case KIND_FONT_SIZE:
    case KIND_UNIT_INDEX:
    case KIND_UNIT_NAME: {
        QComboBox * box = makeComboBox(row);
        for (const char * key : {"LangID", "Theme", "FontPointSize"})
            if (qstrcmp(row.key, key) == 0)
                connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &HygPreferencesDialog::applyLook);
        return box;
    }
    case KIND_LINES: {
        auto * lines = new QPlainTextEdit;
        lines->setTabChangesFocus(true);
        lines->setLineWrapMode(QPlainTextEdit::NoWrap);
        lines->setFixedHeight(lines->fontMetrics().lineSpacing() * 5 + 16);
        return lines;
    }
    case KIND_QUESTIONS: {
        auto * list = new QListWidget;
        list->setFixedHeight(list->fontMetrics().lineSpacing() * 7);
        return list;
    }
    case KIND_FORGET_ALL: {
        auto * button = new QPushButton;
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, &HygPreferencesDialog::forgetAll);
        return button;
    }
    case KIND_TEXT:
    case KIND_FILE:
    case KIND_DIRECTORY:
        break;
    }
    return new QLineEdit;
}

QWidget * HygPreferencesDialog::withBrowseButton(QLineEdit * edit, const Row & row) {
    auto * container = new QWidget;
    auto * line = new QHBoxLayout(container);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    auto * button = new QToolButton;
    button->setIcon(HygIconEngine::icon(QStringLiteral("folder")));
    button->setObjectName(QStringLiteral("browse"));
    line->addWidget(edit);
    line->addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, edit, &row] {
        QFileDialog::Options options;
        options.setFlag(QFileDialog::DontUseNativeDialog, m_settings.m_dontUseNativeDialogs);
        const QString chosen =
            row.kind == KIND_DIRECTORY
                ? QFileDialog::getExistingDirectory(this, translated(row.label), edit->text(),
                                                    options | QFileDialog::ShowDirsOnly)
                : QFileDialog::getOpenFileName(this, translated(row.label), edit->text(), {}, nullptr, options);
        if (!chosen.isEmpty())
            edit->setText(chosen);
    });
    return container;
}

QVariant HygPreferencesDialog::fieldValue(const char * key) const {
    return valueOf(findChild<QWidget *>(QLatin1String(key)));
}

void HygPreferencesDialog::load() {
    m_isLoading = true;
    for (Field & field : m_fields)
        if (const QVariant value = m_settings.value(QLatin1String(field.row->key)); value.isValid()) {
            setValueOf(field.editor, value);
            field.initial = valueOf(field.editor);
        }
    loadQuestions();
    m_isLoading = false;
}

void HygPreferencesDialog::loadQuestions() {
    auto * list = findChild<QListWidget *>(QStringLiteral("DoNotShowAgainDialogs"));
    QStringList untouched; // survives a change of language
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->checkState() == Qt::Unchecked)
            untouched << list->item(i)->data(Qt::UserRole).toString();
    list->clear();
    const auto & answers = m_settings.m_rememberedAnswers;
    for (auto answer = answers.cbegin(); answer != answers.cend(); ++answer) {
        if (!answer->checked)
            continue;
        auto * item = new QListWidgetItem(tr("%1 - answer: %2").arg(answer.key(), answerText(answer->answer)), list);
        item->setData(Qt::UserRole, answer.key());
        item->setCheckState(untouched.contains(answer.key()) ? Qt::Unchecked : Qt::Checked);
    }
    const bool hasQuestions = list->count() > 0;
    findChild<QPushButton *>(QStringLiteral("DoNotShowAgainDialogsAnswer"))->setEnabled(hasQuestions);
    if (!hasQuestions)
        (new QListWidgetItem(tr("Every question is asked."), list))->setFlags(Qt::NoItemFlags);
}

void HygPreferencesDialog::forgetAll() {
    const auto * list = findChild<QListWidget *>(QStringLiteral("DoNotShowAgainDialogs"));
    for (int i = 0; i < list->count(); ++i)
        list->item(i)->setCheckState(Qt::Unchecked);
}

void HygPreferencesDialog::restoreDefaults() {
    for (const Field & field : m_fields)
        if (const QVariant value = m_settings.defaultValue(QLatin1String(field.row->key)); value.isValid())
            setValueOf(field.editor, value);
}

bool HygPreferencesDialog::apply() {
    QStringList changed;
    for (Field & field : m_fields) {
        if (!field.initial.isValid())
            continue;
        const QVariant value = valueOf(field.editor);
        const QString key = QLatin1String(field.row->key);
        if (value != field.initial && m_settings.setValue(key, value))
            changed << key;
        field.initial = value;
    }
    applyQuestions(changed);
    if (changed.contains(QStringLiteral("LangID"))) {
        m_settings.setLangIdOfRun({}); // what the user chooses now outweighs the command line
        if (m_languages != nullptr)
            m_languageBefore = m_languages->langId();
    }
    if (changed.isEmpty())
        return true;
    emit settingsChanged(changed);
    try {
        m_settings.write();
    } catch (const KOR::Exception & ex) {
        ex.report();
        QMessageBox::critical(this, windowTitle(),
                              tr("The settings apply for now but could not be stored:\n%1").arg(ex.what()));
        return false;
    }
    return true;
}

void HygPreferencesDialog::applyQuestions(QStringList & changed) {
    const auto * list = findChild<QListWidget *>(QStringLiteral("DoNotShowAgainDialogs"));
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->checkState() == Qt::Unchecked &&
            m_settings.m_rememberedAnswers.remove(list->item(i)->data(Qt::UserRole).toString()) > 0 &&
            !changed.contains(list->objectName()))
            changed << list->objectName() << QStringLiteral("DoNotShowAgainDialogsAnswer");
    if (changed.contains(list->objectName()))
        loadQuestions();
}

void HygPreferencesDialog::accept() {
    apply();
    QDialog::accept();
}

void HygPreferencesDialog::reject() {
    showLook(m_settings.m_theme, m_settings.m_fontPointSize, m_languageBefore);
    QDialog::reject();
}

void HygPreferencesDialog::applyLook() {
    if (m_isLoading)
        return;
    // An unchanged field leaves the language that the command line has chosen.
    const QString stored = fieldValue("LangID").toString();
    QString language = stored.isEmpty() ? QtExt::LanguageHandler::systemLanguage() : stored;
    for (const Field & field : m_fields)
        if (qstrcmp(field.row->key, "LangID") == 0 && field.initial == stored)
            language = m_languageBefore;
    showLook(fieldValue("Theme").toString(), fieldValue("FontPointSize").toUInt(), language);
}

void HygPreferencesDialog::showLook(const QString & theme, unsigned int fontPointSize, const QString & language) {
    const int systemSize = QFontDatabase::systemFont(QFontDatabase::GeneralFont).pointSize();
    const int size = fontPointSize == 0 ? systemSize : static_cast<int>(fontPointSize);
    QFont font = QApplication::font();
    if (size > 0 && font.pointSize() != size) {
        font.setPointSize(size);
        QApplication::setFont(font);
    }
    QtExt::Palette::apply(theme);
    if (m_languages != nullptr && !language.isEmpty() && m_languages->langId() != language)
        m_languages->installTranslator(language);
}

void HygPreferencesDialog::setFilter(const QString & text) {
    if (m_search->text() != text) {
        m_search->setText(text); // comes back here
        return;
    }
    m_words = text.simplified().split(' ', Qt::SkipEmptyParts);
    showMatches();
    if (!m_words.isEmpty()) { // from the top, with the first group found as the chosen one
        int first = 0;
        while (first < NUM_GROUPS - 1 && m_groups->item(first)->isHidden())
            ++first;
        const QSignalBlocker blocker(m_groups);
        m_groups->setCurrentRow(first);
        m_scroll->verticalScrollBar()->setValue(0);
    }
}

bool HygPreferencesDialog::matches(const Field & field) const {
    const Row & row = *field.row;
    if (const auto view = GROUPS[row.group].view; view && !HygViewTable::exists(*view))
        return false;
    const QString texts =
        QStringList{translated(row.label), translated(row.toolTip), translated(GROUPS[row.group].title),
                    QLatin1String(row.key), QLatin1String(row.label)}
            .join('\n');
    return std::all_of(m_words.begin(), m_words.end(),
                       [&](const QString & word) { return texts.contains(word, Qt::CaseInsensitive); });
}

void HygPreferencesDialog::showMatches() {
    const bool isSearching = !m_words.isEmpty();
    std::array<int, NUM_GROUPS> found{};
    for (const Field & field : m_fields) {
        const bool isFound = matches(field);
        found[field.row->group] += isFound ? 1 : 0;
        field.container->setVisible(isFound);
        if (field.label != nullptr)
            field.label->setVisible(isFound);
        QWidget * named = field.label != nullptr ? static_cast<QWidget *>(field.label) : field.editor;
        mark(*named, isFound && isSearching);
    }
    int total = 0;
    for (int group = 0; group < NUM_GROUPS; ++group) {
        const auto index = static_cast<std::size_t>(group);
        total += found[index];
        m_groups->item(group)->setHidden(found[index] == 0);
        m_sections[index].widget->setVisible(isSearching ? found[index] > 0 : group == m_groups->currentRow());
    }
    m_nothingFound->setVisible(total == 0);
}

void HygPreferencesDialog::showGroup() {
    showMatches();
    m_scroll->widget()->adjustSize();
    QApplication::sendPostedEvents(m_scroll->widget(), QEvent::LayoutRequest);
    const int current = std::max(0, m_groups->currentRow());
    const QWidget * section = m_sections[static_cast<std::size_t>(current)].widget;
    m_scroll->verticalScrollBar()->setValue(m_words.isEmpty() ? 0 : section->y());
}

void HygPreferencesDialog::changeEvent(QEvent * event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        fillGroups();
    QDialog::changeEvent(event);
}

void HygPreferencesDialog::keyPressEvent(QKeyEvent * event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && !m_words.isEmpty())
        m_search->clear();
    else if (!isEnter || !m_search->hasFocus()) // Enter in the search field must not close the dialog
        QDialog::keyPressEvent(event);
}

bool HygPreferencesDialog::eventFilter(QObject * watched, QEvent * event) {
    const auto * widget = qobject_cast<QWidget *>(watched);
    if (event->type() == QEvent::Wheel && widget != nullptr && widget->focusPolicy() == Qt::StrongFocus &&
        !widget->hasFocus()) {
        event->ignore();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void HygPreferencesDialog::retranslate() {
    setWindowTitle(tr("Preferences"));
    m_search->setPlaceholderText(tr("Search settings"));
    m_nothingFound->setText(tr("No setting contains these words."));
    for (const Field & field : m_fields)
        retranslateField(field);
    m_isLoading = true;
    loadQuestions();
    m_isLoading = false;
    fillGroups();
    showMatches();
}

void HygPreferencesDialog::retranslateField(const Field & field) {
    const Row & row = *field.row;
    field.editor->setToolTip(translated(row.toolTip));
    if (field.label != nullptr) {
        field.label->setText(tr("%1:", "label of a field").arg(translated(row.label)));
        field.label->setToolTip(translated(row.toolTip));
    }
    if (auto * button = field.container->findChild<QToolButton *>(QStringLiteral("browse")))
        button->setToolTip(tr("Choose…"));
    if (auto * flag = qobject_cast<QCheckBox *>(field.editor))
        flag->setText(translated(row.label));
    else if (auto * spin = qobject_cast<QSpinBox *>(field.editor))
        showZeroText(*spin, row.zeroText == nullptr ? QString() : translated(row.zeroText));
    else if (auto * button = qobject_cast<QPushButton *>(field.editor))
        button->setText(tr("Forget all answers"));
    else if (auto * box = qobject_cast<QComboBox *>(field.editor); box != nullptr && row.zeroText != nullptr)
        box->setItemText(0, translated(row.zeroText));
    else if (box != nullptr)
        for (const Choice & choice : CHOICES)
            if (qstrcmp(choice.key, row.key) == 0)
                box->setItemText(box->findData(QLatin1String(choice.value)), translated(choice.label));
}

void HygPreferencesDialog::fillGroups() {
    if (m_sections.empty() || m_groups->count() != NUM_GROUPS)
        return; // still being built
    int labelWidth = 0;
    for (const Field & field : m_fields)
        if (field.label != nullptr)
            labelWidth = std::max(labelWidth, field.label->sizeHint().width());
    int listWidth = 0;
    for (int group = 0; group < NUM_GROUPS; ++group) {
        const Section & section = m_sections[static_cast<std::size_t>(group)];
        const QString title = translated(GROUPS[group].title);
        QFont font = QApplication::font();
        font.setBold(true);
        font.setPointSizeF(font.pointSizeF() * 1.15);
        section.title->setFont(font);
        section.title->setText(title);
        section.grid->setColumnMinimumWidth(LABEL_COLUMN, labelWidth);
        QListWidgetItem * item = m_groups->item(group);
        item->setText(title);
        item->setIcon(HygIconEngine::icon(QLatin1String(GROUPS[group].icon)));
        item->setSizeHint({0, fontMetrics().height() + 14});
        listWidth = std::max(listWidth, fontMetrics().horizontalAdvance(title));
    }
    m_groups->setFixedWidth(listWidth + 56);
    int sectionWidth = 0;
    for (const Section & section : m_sections)
        sectionWidth = std::max(sectionWidth, section.grid->minimumSize().width());
    m_scroll->setMinimumWidth(
        std::min(sectionWidth + m_scroll->verticalScrollBar()->sizeHint().width() + MARGIN, MAX_CONTENT_WIDTH));
    m_searchIcon->setIcon(HygIconEngine::icon(QStringLiteral("search")));
}

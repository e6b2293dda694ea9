#include "materials/HygMaterialIdentityForm.h"

#include "materials/HygMaterialDocument.h"
#include "materials/HygMaterialTexts.h"

#include <QtExt/ColorButton.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>

namespace {

using Identification = MM::MaterialIdentification;
using MM::MaterialCategory;

struct TextRow {
    const char * name; ///< of the field
    const char * label;
    const char * toolTip;
    KOR::LangString Identification::*texts; ///< one text a language, or
    std::string Identification::*text;      ///< one for all
    const char * language;
    bool isLong;
};
// clang-format off
constexpr TextRow TEXTS[] = {
    {"NAME_en", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Name (English)"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Shown in English and where no other language is given"), &Identification::m_name, nullptr, "en", false},
    {"NAME_de", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Name (German)"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Shown in German"), &Identification::m_name, nullptr, "de", false},
    {"PRODUCER", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Producer"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Who makes the material; the search finds it"), &Identification::m_producer, nullptr, "all", false},
    {"PRODUCT_ID", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Product number"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Number under which the producer sells the material"), &Identification::m_productId, nullptr, "all", false},
    {"COMMENTS_en", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Remarks (English)"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "What a user of the material should know"), &Identification::m_comments, nullptr, "en", true},
    {"COMMENTS_de", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Remarks (German)"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "What a user of the material should know"), &Identification::m_comments, nullptr, "de", true},
    {"DATA_SHEET_SOURCE", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Source of the data"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Data sheet, standard or report from which the values are taken"), nullptr, &Identification::m_dataSheetSource, nullptr, false},
    {"LABORATORY", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Laboratory"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Where the material was measured"), &Identification::m_laboratory, nullptr, "all", false},
    {"INVESTIGATOR", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Investigator"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Who measured the material"), nullptr, &Identification::m_investigator, nullptr, false},
    {"DATE", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Date"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "When the data were put together, as 31.12.24"), nullptr, &Identification::m_date, nullptr, false},
    {"COUNTRY", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Country"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Where the material comes from"), nullptr, &Identification::m_country, nullptr, false},
    {"COPYRIGHT", QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Rights"),
     QT_TRANSLATE_NOOP("HygMaterialIdentityForm", "Who owns the data"), nullptr, &Identification::m_copyright, nullptr, false},
};
// clang-format on
constexpr int FIRST_SOURCE = 4; ///< row of TEXTS

constexpr const char * CATEGORY_FIELDS[] = {"CATEGORY", "CATEGORY2", "CATEGORY3"};

QString shown(const Identification & identification, const TextRow & row) {
    if (row.text != nullptr)
        return QString::fromStdString(identification.*row.text);
    const KOR::LangString & texts = identification.*row.texts;
    const std::string * own = texts.find(row.language);
    // What stands without a language in the file is the English text.
    if (own == nullptr && std::string_view(row.language) == "en")
        own = texts.find(KOR::LangString::ALL);
    return own != nullptr ? QString::fromStdString(*own) : QString();
}

QString textOf(const QWidget & edit) {
    if (const auto * line = qobject_cast<const QLineEdit *>(&edit))
        return line->text();
    return static_cast<const QPlainTextEdit &>(edit).toPlainText();
}

} // namespace

HygMaterialIdentityForm::HygMaterialIdentityForm(HygMaterialDocument & document, QWidget * parent)
    : HygMaterialForm(parent), m_document(document) {
    addTexts(0, FIRST_SOURCE);
    addAppearance();
    addFlags();
    addTexts(FIRST_SOURCE, static_cast<int>(std::size(TEXTS)));
    connect(&m_document, &HygMaterialDocument::changed, this, &HygMaterialIdentityForm::update);
    retranslate();
    update();
}

void HygMaterialIdentityForm::addTexts(int first, int last) {
    for (int row = first; row < last; ++row) {
        TextField field{row, nullptr, nullptr};
        if (TEXTS[row].isLong) {
            auto * edit = new QPlainTextEdit(widget());
            edit->setTabChangesFocus(true);
            edit->setFixedHeight(58);
            field.edit = edit;
        } else {
            field.edit = new QLineEdit(widget());
        }
        field.edit->installEventFilter(this); // a text is taken when the field is left
        field.label = &addField(QLatin1String(TEXTS[row].name), field.edit);
        if (auto * line = qobject_cast<QLineEdit *>(field.edit))
            connect(line, &QLineEdit::returnPressed, this, [this, field] { takeText(field); });
        m_texts.push_back(field);
    }
}

void HygMaterialIdentityForm::addAppearance() {
    for (std::size_t i = 0; i < NUM_CATEGORIES; ++i) {
        auto * box = new QComboBox(widget());
        for (int category = 0; category <= static_cast<int>(MaterialCategory::CategoryID::MISC); ++category)
            box->addItem(QString(), category);
        m_categories[i] = box;
        m_categoryLabels[i] = &addField(QLatin1String(CATEGORY_FIELDS[i]), box);
        connect(box, QOverload<int>::of(&QComboBox::activated), this, &HygMaterialIdentityForm::takeCategories);
    }
    m_color = new QtExt::ColorButton(widget());
    m_colorLabel = &addField(QStringLiteral("COLOUR"), m_color);
    connect(m_color, &QtExt::ColorButton::colorChanged, this, [this](const QColor & color) {
        m_document.change(tr("Change colour"), [&](MM::Material & material) {
            material.m_identification.m_colour = KOR::Color::fromArgb(color.rgba());
        });
    });
    m_hatching = new QComboBox(widget());
    for (int i = 0; i < HygMaterialTexts::numHatchings(); ++i)
        m_hatching->addItem(QString());
    m_hatchingLabel = &addField(QStringLiteral("HATCHING"), m_hatching);
    connect(m_hatching, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        m_document.change(tr("Change hatching"), [&](MM::Material & material) {
            material.m_identification.m_hatching = static_cast<Identification::HatchingType>(index);
        });
    });
}

void HygMaterialIdentityForm::addFlags() {
    auto * box = new QWidget(widget());
    auto * layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    for (std::size_t i = 0; i < NUM_FLAGS; ++i) {
        m_flags[i] = new QCheckBox(box);
        m_flags[i]->setObjectName(
            QString::fromStdString(MM::KeywordList::Keyword(static_cast<Identification::Flags>(1 << i))));
        layout->addWidget(m_flags[i]);
        connect(m_flags[i], &QCheckBox::clicked, this, &HygMaterialIdentityForm::takeFlags);
    }
    m_flagsLabel = &addField(QStringLiteral("FLAGS"), box);
    m_flagsLabel->setAlignment(Qt::AlignTop);
}

void HygMaterialIdentityForm::takeText(const TextField & field) {
    const TextRow & row = TEXTS[field.row];
    const std::string text = textOf(*field.edit).simplified().toStdString();
    if (QString::fromStdString(text) == shown(m_document.material().m_identification, row).simplified())
        return;
    m_document.change(tr("Change %1").arg(tr(row.label)), [&](MM::Material & material) {
        Identification & identification = material.m_identification;
        if (row.text != nullptr) {
            identification.*row.text = text;
            return;
        }
        KOR::LangString & texts = identification.*row.texts;
        if (std::string_view(row.language) == "en") // what stood there without a language was meant
            texts.set(KOR::LangString::ALL, {});
        texts.set(row.language, text);
    });
}

void HygMaterialIdentityForm::takeCategories() {
    std::string text;
    for (const QComboBox * box : m_categories)
        if (const int id = box->currentData().toInt(); id > 0)
            text +=
                (text.empty() ? "" : ", ") + MM::KeywordList::Keyword(static_cast<MaterialCategory::CategoryID>(id));
    m_document.change(tr("Change category"), [&](MM::Material & material) {
        material.m_identification.m_category = {};
        if (!text.empty())
            material.m_identification.m_category.set(text);
    });
}

void HygMaterialIdentityForm::takeFlags() {
    unsigned int flags = 0;
    for (std::size_t i = 0; i < NUM_FLAGS; ++i)
        flags |= m_flags[i]->isChecked() ? 1u << i : 0u;
    m_document.change(tr("Change flags"), [&](MM::Material & material) { material.m_identification.m_flags = flags; });
}

void HygMaterialIdentityForm::update() {
    const Identification & identification = m_document.material().m_identification;
    for (const TextField & field : m_texts) {
        const QString text = shown(identification, TEXTS[field.row]);
        if (textOf(*field.edit) == text)
            continue;
        if (auto * line = qobject_cast<QLineEdit *>(field.edit))
            line->setText(text);
        else
            static_cast<QPlainTextEdit *>(field.edit)->setPlainText(text);
    }
    for (std::size_t i = 0; i < NUM_CATEGORIES; ++i)
        m_categories[i]->setCurrentIndex(static_cast<int>(identification.m_category.id(i)));
    for (std::size_t i = 0; i < NUM_FLAGS; ++i)
        m_flags[i]->setChecked((identification.m_flags & (1u << i)) != 0);
    const QSignalBlocker blocker(m_color);
    if (identification.m_colour)
        m_color->setColor(QColor::fromRgba(identification.m_colour->argb()));
    m_hatching->setCurrentIndex(
        static_cast<int>(identification.m_hatching.value_or(Identification::HatchingType::None)));
}

void HygMaterialIdentityForm::retranslate() {
    for (const TextField & field : m_texts) {
        const TextRow & row = TEXTS[field.row];
        field.label->setText(tr(row.label));
        field.edit->setToolTip(tr(row.toolTip));
        field.edit->setAccessibleName(tr(row.label));
    }
    m_categoryLabels[0]->setText(tr("Category"));
    m_categoryLabels[1]->setText(tr("Second category"));
    m_categoryLabels[2]->setText(tr("Third category"));
    for (std::size_t i = 0; i < NUM_CATEGORIES; ++i) {
        m_categories[i]->setItemText(0, tr("None"));
        for (int category = 1; category < m_categories[i]->count(); ++category)
            m_categories[i]->setItemText(category, HygMaterialTexts::category(category));
        m_categories[i]->setToolTip(tr("Group under which the database lists the material"));
        m_categories[i]->setAccessibleName(m_categoryLabels[i]->text());
    }
    m_colorLabel->setText(tr("Colour"));
    m_color->setToolTip(tr("Colour of the material in drawings"));
    m_color->setAccessibleName(tr("Colour"));
    m_hatchingLabel->setText(tr("Hatching"));
    m_hatching->setToolTip(tr("Hatching of the material in drawings, after ISO 128-50"));
    m_hatching->setAccessibleName(tr("Hatching"));
    for (int i = 0; i < m_hatching->count(); ++i)
        m_hatching->setItemText(i, HygMaterialTexts::hatching(i));
    m_flagsLabel->setText(tr("Kind of material"));
    for (std::size_t i = 0; i < NUM_FLAGS; ++i) {
        const auto flag = static_cast<Identification::Flags>(1 << i);
        m_flags[i]->setText(HygMaterialTexts::translated(MM::KeywordList::Description(flag)));
        m_flags[i]->setToolTip(QString::fromStdString(MM::KeywordList::Keyword(flag)));
    }
}

void HygMaterialIdentityForm::changeEvent(QEvent * event) {
    HygMaterialForm::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

bool HygMaterialIdentityForm::eventFilter(QObject * watched, QEvent * event) {
    if (event->type() == QEvent::FocusOut)
        for (const TextField & field : m_texts)
            if (field.edit == watched)
                takeText(field);
    // What has been taken over is undone in the document, not in the field.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto & key = static_cast<const QKeyEvent &>(*event);
        if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo))
            for (const TextField & field : m_texts)
                if (field.edit == watched &&
                    textOf(*field.edit) == shown(m_document.material().m_identification, TEXTS[field.row])) {
                    event->ignore();
                    return true;
                }
    }
    return HygMaterialForm::eventFilter(watched, event);
}

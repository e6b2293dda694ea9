#include "construction/HygNewLayerDialog.h"

#include "views/HygListKeys.h"

#include <QtExt/ValueEdit.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

HygNewLayerDialog::HygNewLayerDialog(HygMaterialOffer & offer, const HYGRION::Project & project, KOR::Unit unit,
                                     QWidget * parent)
    : QDialog(parent), m_offer(offer), m_project(project), m_unit(unit), m_search(new QLineEdit(this)),
      m_list(new QListWidget(this)), m_thickness(new QtExt::ValueEdit(this)), m_place(new QComboBox(this)),
      m_isDivided(new QCheckBox(this)) {
    setObjectName(QStringLiteral("newLayerDialog"));
    setWindowTitle(tr("Add layer"));
    auto * layout = new QVBoxLayout(this);
    auto * title = new QLabel(tr("&Material"), this);
    title->setBuddy(m_search);
    layout->addWidget(title);
    m_search->setObjectName(QStringLiteral("layerSearch"));
    m_search->setClearButtonEnabled(true);
    m_search->setPlaceholderText(tr("Search, for example brick"));
    m_search->setToolTip(tr("Words that the material's name or category holds; Up and Down choose in the list"));
    new HygListKeys(*m_search, *m_list);
    layout->addWidget(m_search);
    m_list->setObjectName(QStringLiteral("layerMaterials"));
    m_list->setAccessibleName(tr("Materials of the project and of the database"));
    m_list->setUniformItemSizes(true);
    m_list->setMinimumHeight(260);
    layout->addWidget(m_list, 1);

    auto * form = new QFormLayout;
    m_thickness->setObjectName(QStringLiteral("layerThickness"));
    m_thickness->setToolTip(tr("Thickness of the layer, usually 1 mm to 1 m; any unit of length can be typed"));
    m_thickness->setMinimum(0, KOR::Unit("m"), true);
    m_thickness->setMaximum(100, KOR::Unit("m"));
    form->addRow(tr("&Thickness"), m_thickness);
    m_place->setObjectName(QStringLiteral("layerPlace"));
    m_place->setToolTip(tr("Where the layer comes to stand; the outside is on the left"));
    form->addRow(tr("&Place"), m_place);
    m_isDivided->setObjectName(QStringLiteral("layerDivided"));
    m_isDivided->setText(tr("&Divide into cells"));
    m_isDivided->setChecked(true);
    m_isDivided->setToolTip(
        tr("Cells of 1 mm at the borders of the layer that grow towards its middle; it can be changed later"));
    form->addRow(QString(), m_isDivided);
    layout->addLayout(form);

    auto * buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_addNext = buttons->addButton(tr("Add and &next"), QDialogButtonBox::ActionRole);
    m_addNext->setObjectName(QStringLiteral("layerAddNext"));
    m_addNext->setToolTip(tr("Add this layer and choose another one, further inside"));
    m_add = buttons->addButton(tr("&Add"), QDialogButtonBox::ActionRole);
    m_add->setObjectName(QStringLiteral("layerAdd"));
    m_add->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setText(tr("&Close"));
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_add, &QPushButton::clicked, this, [this] { add(true); });
    connect(m_addNext, &QPushButton::clicked, this, [this] { add(false); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this] { add(true); });
    connect(m_list, &QListWidget::currentRowChanged, this, &HygNewLayerDialog::choose);
    connect(m_search, &QLineEdit::textChanged, this, &HygNewLayerDialog::fill);
    connect(m_thickness, &QLineEdit::textEdited, this, [this] { m_isThicknessTyped = true; });
    connect(m_thickness, &QtExt::ValueEdit::messageChanged, this, [this] { choose(); });
    connect(&m_offer, &HygMaterialOffer::changed, this, &HygNewLayerDialog::updateOffer);
    m_thickness->setParameter(KOR::Parameter("Thickness", 100, KOR::Unit("mm")));
    m_thickness->setUnit(m_unit);
    updateOffer();
    m_search->setFocus();
    resize(440, 520);
}

void HygNewLayerDialog::setPlaces(const std::vector<Place> & places) {
    m_place->clear();
    for (const Place & place : places)
        m_place->addItem(place.text, static_cast<int>(place.before));
    m_place->setCurrentIndex(m_place->count() - 1);
    m_place->setEnabled(m_place->count() > 1);
}

void HygNewLayerDialog::updateOffer() {
    m_entries = m_offer.entries(m_project);
    fill();
}

void HygNewLayerDialog::fill() {
    // While words are typed the best one is chosen; what comes into the list by itself changes nothing.
    const bool isSearching = sender() == m_search;
    const QString before = m_list->currentItem() != nullptr && !isSearching ? m_list->currentItem()->text() : QString();
    m_list->clear();
    for (const std::size_t n : HygMaterialOffer::find(m_entries, m_search->text())) {
        const HygMaterialOffer::Entry & entry = m_entries[n];
        const QString name = QString::fromStdString(entry.reference.m_name);
        auto * item = new QListWidgetItem(HygMaterialOffer::swatch(entry.reference), name, m_list);
        item->setData(Qt::UserRole, static_cast<int>(n));
        item->setToolTip(entry.isInProject ? tr("In the project already") : entry.category);
        if (entry.isInProject) {
            QFont bold = m_list->font();
            bold.setBold(true);
            item->setFont(bold);
        }
        if (!before.isEmpty() && name == before)
            m_list->setCurrentItem(item);
    }
    if (m_list->currentRow() < 0)
        m_list->setCurrentRow(0);
    choose();
}

const HygMaterialOffer::Entry * HygNewLayerDialog::chosen() const {
    const QListWidgetItem * item = m_list->currentItem();
    return item == nullptr ? nullptr : &m_entries[static_cast<std::size_t>(item->data(Qt::UserRole).toInt())];
}

void HygNewLayerDialog::choose() {
    const HygMaterialOffer::Entry * entry = chosen();
    m_add->setEnabled(entry != nullptr && m_thickness->isValid());
    m_addNext->setEnabled(m_add->isEnabled());
    if (entry == nullptr || m_isThicknessTyped)
        return;
    KOR::Parameter usual("Thickness", HygMaterialOffer::usualThickness(entry->reference.m_hatchCode), KOR::Unit("m"));
    usual.set_value(usual.get_value(m_unit), m_unit);
    m_thickness->setParameter(usual);
}

void HygNewLayerDialog::add(bool isLast) {
    const HygMaterialOffer::Entry * entry = chosen();
    if (entry == nullptr || !m_thickness->isValid())
        return;
    emit layerWanted({entry->reference, m_thickness->parameter(), m_isDivided->isChecked(),
                      static_cast<std::size_t>(m_place->currentData().toInt())});
    if (isLast)
        return accept();
    m_isThicknessTyped = false;
    m_search->clear();
    m_search->setFocus();
}

#include "construction/HygLayerPanel.h"

#include "HygIconEngine.h"
#include "construction/HygConstructionCanvas.h"
#include "construction/HygLayerModel.h"

#include <QtExt/ValueEdit.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>

namespace {

/// Edits a material by a list, a thickness by a field with units; what was typed goes to the editor of the construction.
class LayerDelegate : public QStyledItemDelegate {
public:
    LayerDelegate(HygConstructionEditor & editor, HygConstructionCanvas & canvas, HygMaterialOffer & offer,
                  HygLayerModel & model, QObject * parent)
        : QStyledItemDelegate(parent), m_editor(editor), m_canvas(canvas), m_offer(offer), m_model(model) {}

    QWidget * createEditor(QWidget * parent, const QStyleOptionViewItem &, const QModelIndex & index) const override {
        if (index.column() == HygLayerModel::ThicknessColumn) {
            auto * edit = new QtExt::ValueEdit(parent);
            edit->setObjectName(QStringLiteral("thicknessEdit"));
            edit->setMinimum(0, KOR::Unit("m"), true);
            return edit;
        }
        auto * box = new QComboBox(parent);
        box->setObjectName(QStringLiteral("materialEdit"));
        box->setMaxVisibleItems(20);
        for (const HygMaterialOffer::Entry & entry : m_offer.entries(m_editor.project()))
            box->addItem(HygMaterialOffer::swatch(entry.reference), QString::fromStdString(entry.reference.m_name));
        connect(box, QOverload<int>::of(&QComboBox::activated), this, [this, box] {
            auto * self = const_cast<LayerDelegate *>(this);
            emit self->commitData(box);
            emit self->closeEditor(box);
        });
        return box;
    }

    /// What cannot be a thickness stays in its field, which says why.
    bool eventFilter(QObject * editor, QEvent * event) override {
        const auto * edit = qobject_cast<QtExt::ValueEdit *>(editor);
        if (edit != nullptr && !edit->isValid() && event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab)
                return true;
        }
        return QStyledItemDelegate::eventFilter(editor, event);
    }

    void setEditorData(QWidget * editor, const QModelIndex & index) const override {
        if (auto * edit = qobject_cast<QtExt::ValueEdit *>(editor)) {
            KOR::Parameter value("Thickness", index.data(Qt::EditRole).toDouble(), KOR::Unit("m"));
            const KOR::Unit unit = m_canvas.scene().unit;
            value.set_value(value.get_value(unit), unit);
            edit->setParameter(value);
            edit->selectAll();
        } else if (auto * box = qobject_cast<QComboBox *>(editor)) {
            box->setCurrentIndex(box->findText(index.data(Qt::EditRole).toString()));
        }
    }

    void setModelData(QWidget * editor, QAbstractItemModel *, const QModelIndex & index) const override {
        const HygLayerModel::Layer layer = m_model.layers()[static_cast<std::size_t>(index.row())];
        if (const auto * edit = qobject_cast<QtExt::ValueEdit *>(editor)) {
            const double wanted = edit->parameter().value();
            if (edit->isValid() && std::abs(wanted - index.data(Qt::EditRole).toDouble()) > 1e-9 * wanted)
                m_editor.setThickness(HYGRION::Disc::X, layer.first, layer.last, edit->parameter());
            return;
        }
        const QString name = qobject_cast<QComboBox *>(editor)->currentText();
        if (name.isEmpty() || name == index.data(Qt::EditRole).toString())
            return;
        for (const HygMaterialOffer::Entry & entry : m_offer.entries(m_editor.project()))
            if (QString::fromStdString(entry.reference.m_name) == name) {
                m_editor.assignMaterial(entry.reference, {
                                                             {layer.first, 0, 0, layer.last, 0, 0}
                });
                return;
            }
    }

private:
    HygConstructionEditor & m_editor;
    HygConstructionCanvas & m_canvas;
    HygMaterialOffer & m_offer;
    HygLayerModel & m_model;
};

} // namespace

HygLayerPanel::HygLayerPanel(HygConstructionEditor & editor, HygConstructionCanvas & canvas, HygMaterialOffer & offer,
                             QWidget * parent)
    : QWidget(parent), m_editor(editor), m_canvas(canvas), m_model(new HygLayerModel(canvas.scene(), this)),
      m_table(new QTableView(this)), m_total(new QLabel(this)), m_add(new QToolButton(this)),
      m_remove(new QToolButton(this)), m_up(new QToolButton(this)), m_down(new QToolButton(this)) {
    setObjectName(QStringLiteral("layerPanel"));
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_total);
    auto * buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    struct ButtonRow {
        QToolButton * button;
        const char * name;
        const char * icon;
    };
    for (const ButtonRow & row : {
             ButtonRow{m_add,    "addLayerButton",    "layer_add" },
             {m_remove, "removeLayerButton", "remove"    },
             {m_up,     "layerUpButton",     "arrow_up"  },
             {m_down,   "layerDownButton",   "arrow_down"}
    }) {
        row.button->setObjectName(QLatin1String(row.name));
        row.button->setIcon(HygIconEngine::icon(QLatin1String(row.icon)));
        row.button->setToolButtonStyle(row.button == m_add ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
        buttons->addWidget(row.button);
    }
    buttons->insertStretch(1, 1);

    m_table->setObjectName(QStringLiteral("layerTable"));
    m_table->setModel(m_model);
    m_table->setItemDelegate(new LayerDelegate(editor, canvas, offer, *m_model, m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                             QAbstractItemView::AnyKeyPressed);
    m_table->setDragDropMode(QAbstractItemView::InternalMove);
    m_table->setDragDropOverwriteMode(false);
    m_table->setDropIndicatorShown(true);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->horizontalHeader()->setSectionResizeMode(HygLayerModel::MaterialColumn, QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(HygLayerModel::ThicknessColumn, QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(HygLayerModel::CellsColumn, QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 12);
    m_table->installEventFilter(this);

    connect(m_model, &HygLayerModel::moveRequested, this, &HygLayerPanel::moveLayer);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex & index) {
                updateButtons();
                if (m_isFollowing || !index.isValid())
                    return;
                const HygLayerModel::Layer & layer = m_model->layers()[static_cast<std::size_t>(index.row())];
                const QScopedValueRollback following(m_isFollowing, true);
                m_canvas.selectColumns(layer.first, layer.last);
            });
    connect(m_add, &QToolButton::clicked, this, &HygLayerPanel::layerRequested);
    connect(m_remove, &QToolButton::clicked, this, &HygLayerPanel::removeLayer);
    connect(m_up, &QToolButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QToolButton::clicked, this, [this] { move(1); });
    retranslate();
}

void HygLayerPanel::retranslate() {
    m_table->setAccessibleName(tr("Layers from the outside to the inside"));
    m_add->setText(tr("Add layer ..."));
    const auto describe = [](QToolButton & button, const QString & name, const QString & tip) {
        button.setAccessibleName(name);
        button.setToolTip(tip);
    };
    describe(*m_add, tr("Add layer"), tr("Add a layer of a material and thickness"));
    describe(*m_remove, tr("Remove layer"), tr("Take the layer out (Delete)"));
    describe(*m_up, tr("Move outwards"), tr("Move the layer towards the outside (Alt+Up); layers can be dragged too"));
    describe(*m_down, tr("Move inwards"),
             tr("Move the layer towards the inside (Alt+Down); layers can be dragged too"));
    updateLayers();
}

void HygLayerPanel::updateLayers() {
    const QScopedValueRollback following(m_isFollowing, true);
    const int row = currentLayer();
    m_model->update();
    if (row >= 0 && m_model->rowCount() > 0)
        m_table->setCurrentIndex(m_model->index(std::min(row, m_model->rowCount() - 1), HygLayerModel::MaterialColumn));
    const HygConstructionScene & scene = m_canvas.scene();
    m_total->setText(m_model->rowCount() == 0 ? QString()
                                              : tr("%n layers, %1 in all", nullptr, m_model->rowCount())
                                                    .arg(scene.lengthText(scene.x.width(0, scene.x.count() - 1))));
    updateButtons();
}

void HygLayerPanel::updateSelection() {
    if (m_isFollowing || m_canvas.scene().selection.empty())
        return;
    const QScopedValueRollback following(m_isFollowing, true);
    const std::uint32_t column = m_canvas.scene().selection.bounds().left;
    for (int row = 0; row < m_model->rowCount(); ++row)
        if (column >= m_model->layers()[static_cast<std::size_t>(row)].first &&
            column <= m_model->layers()[static_cast<std::size_t>(row)].last)
            m_table->setCurrentIndex(m_model->index(row, HygLayerModel::MaterialColumn));
}

int HygLayerPanel::currentLayer() const {
    return m_table->currentIndex().isValid() ? m_table->currentIndex().row() : -1;
}

void HygLayerPanel::updateButtons() {
    const int layer = currentLayer();
    m_remove->setEnabled(layer >= 0 && m_model->rowCount() > 1);
    m_up->setEnabled(layer > 0);
    m_down->setEnabled(layer >= 0 && layer + 1 < m_model->rowCount());
}

void HygLayerPanel::move(int step) {
    const int layer = currentLayer();
    const int target = layer + step;
    if (layer >= 0 && target >= 0 && target < m_model->rowCount())
        moveLayer(layer, step > 0 ? target + 1 : target);
}

void HygLayerPanel::moveLayer(int layer, int before) {
    const auto & layers = m_model->layers();
    const HygLayerModel::Layer moved = layers[static_cast<std::size_t>(layer)];
    const std::size_t column = before < static_cast<int>(layers.size()) ? layers[static_cast<std::size_t>(before)].first
                                                                        : layers.back().last + 1;
    m_editor.move(HYGRION::Disc::X, moved.first, moved.last, column);
    const std::size_t width = moved.last - moved.first + 1;
    const std::size_t first = column > moved.first ? column - width : column;
    m_canvas.selectColumns(first, first + width - 1);
}

void HygLayerPanel::removeLayer() {
    if (!m_remove->isEnabled())
        return;
    const auto row = static_cast<std::size_t>(currentLayer());
    const HygLayerModel::Layer layer = m_model->layers()[row];
    m_editor.removeLayer(layer.first, layer.last);
    if (!m_model->layers().empty()) {
        const HygLayerModel::Layer & next = m_model->layers()[std::min(row, m_model->layers().size() - 1)];
        m_canvas.selectColumns(next.first, next.last);
    }
}

bool HygLayerPanel::eventFilter(QObject * watched, QEvent * event) {
    // Here these keys mean the list and not the cells.
    if (watched == m_table && event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Delete || key == Qt::Key_F2) {
            event->accept();
            return true;
        }
    }
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const auto * key = static_cast<QKeyEvent *>(event);
        const bool isAlt = (key->modifiers() & Qt::AltModifier) != 0;
        if (key->key() == Qt::Key_Delete || (isAlt && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down))) {
            if (key->key() == Qt::Key_Delete)
                removeLayer();
            else
                move(key->key() == Qt::Key_Up ? -1 : 1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HygLayerPanel::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

#pragma once

#include "construction/HygConstructionEditor.h"
#include "construction/HygMaterialOffer.h"

#include <QDialog>

namespace QtExt {
class ValueEdit;
}
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

/// Asks for material, thickness and place of a new layer. Stays open for the next one if the user wants.
class HygNewLayerDialog : public QDialog {
    Q_OBJECT
public:
    /// \param borders columns before which a layer can stand, with words for them
    struct Place {
        QString text;
        std::size_t before;
    };

    HygNewLayerDialog(HygMaterialOffer & offer, const HYGRION::Project & project, KOR::Unit unit,
                      QWidget * parent = nullptr);

    /// Where the layer may stand; the last place is chosen.
    void setPlaces(const std::vector<Place> & places);

signals:
    /// The user wants this layer.
    void layerWanted(const HygConstructionEditor::NewLayer & layer);

private:
    void fill();
    void choose();
    void updateOffer();
    void add(bool isLast);
    const HygMaterialOffer::Entry * chosen() const;

    HygMaterialOffer & m_offer;
    const HYGRION::Project & m_project;
    KOR::Unit m_unit;
    std::vector<HygMaterialOffer::Entry> m_entries;
    QLineEdit * m_search;
    QListWidget * m_list;
    QtExt::ValueEdit * m_thickness;
    QComboBox * m_place;
    QCheckBox * m_isDivided;
    QPushButton * m_add;
    QPushButton * m_addNext;
    bool m_isThicknessTyped = false;
};

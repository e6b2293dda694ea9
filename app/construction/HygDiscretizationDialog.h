#pragma once

#include "construction/HygConstructionEditor.h"

#include <QDialog>

#include <array>

namespace QtExt {
class ValueEdit;
}
struct HygConstructionScene;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QTableWidget;

/// Asks how layers are to be divided into cells, for each or for all, and shows the cells and their number at once.
class HygDiscretizationDialog : public QDialog {
    Q_OBJECT
public:
    explicit HygDiscretizationDialog(const HygConstructionScene & scene, QWidget * parent = nullptr);

    static constexpr unsigned int DIRECTIONS[] = {HYGRION::Disc::X, HYGRION::Disc::Y, HYGRION::Disc::Z};

    /// Layers of columns, of rows or of stack planes; layers that are to stay have no settings.
    const std::vector<HygConstructionEditor::Layer> & layers(unsigned int dir) const;
    /// Whether anything of a direction is to be divided.
    bool isChanged(unsigned int dir) const;
    /// Cells afterwards, of all columns times all rows times all stack planes.
    std::size_t cellCount() const;

private:
    class Preview;
    struct Direction {
        unsigned int dir = 0;
        std::vector<HygConstructionEditor::Layer> layers;
        std::vector<double> widths;               ///< of the layers [m]
        std::vector<std::vector<double>> cells;   ///< present widths [m]
        std::vector<std::vector<double>> divided; ///< widths to be [m]
        QStringList names;
        QString problem; ///< why a layer cannot be divided as wanted
    };

    void readLayers(const HygConstructionScene & scene);
    void fillTable();
    /// \param isTyping leaves the fields for lengths alone
    void showSettings(bool isTyping = false);
    void takeSettings();
    void update(Direction & direction);
    void updateAll();
    Direction & shown() { return m_directions[m_shown]; }
    const Direction & shown() const { return m_directions[m_shown]; }
    std::vector<std::size_t> chosenLayers() const;
    QColor colourOf(const Direction & direction, std::size_t layer) const;

    const Direction & directionOf(unsigned int dir) const;

    const HygConstructionScene & m_scene;
    std::array<Direction, std::size(DIRECTIONS)> m_directions;
    std::size_t m_shown = 0;
    QComboBox * m_direction;
    QTableWidget * m_table;
    QCheckBox * m_isDivided;
    QComboBox * m_mode;
    QtExt::ValueEdit * m_minStep;
    QtExt::ValueEdit * m_maxStep;
    QDoubleSpinBox * m_stretch;
    QComboBox * m_growth;
    Preview * m_preview;
    QLabel * m_count;
    QLabel * m_problem;
    QPushButton * m_apply;
    bool m_isShowing = false; ///< fields are being filled
};

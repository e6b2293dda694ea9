#pragma once

#include "construction/HygConstructionScene.h"

#include <QFrame>

class HygConstructionEditor;
class QVBoxLayout;

/// What a construction still lacks, found in the plane that is shown.
struct HygConstructionHint {
    enum kind_t { NoMaterial, UnknownMaterial, NoInterface, Overlap };
    kind_t kind = NoMaterial;
    bool isWarning = true;
    std::vector<HYGRION::Range> ranges; ///< the cells concerned
    HYGRION::Assignment::location_t side = HYGRION::Assignment::location_t::Element;
    std::uint64_t count = 0; ///< cells or faces

    /// In the order of their weight. Linear in the number of cells.
    static std::vector<HygConstructionHint> find(const HygConstructionScene & scene);
};

/// Says in a strip below the drawing what the construction lacks; each line has links that show it or mend it.
class HygHintBar : public QFrame {
    Q_OBJECT
public:
    explicit HygHintBar(HygConstructionEditor & editor, QWidget * parent = nullptr);

    void setHints(const HygConstructionScene & scene, std::vector<HygConstructionHint> hints);
    const std::vector<HygConstructionHint> & hints() const { return m_hints; }

signals:
    /// The user wants to see the cells.
    void showRequested(const HygConstructionHint & hint);
    /// The user wants to choose what to assign to the cells.
    void chooseRequested(const HygConstructionHint & hint);

private:
    void follow(const QString & link);
    QString lineOf(const HygConstructionScene & scene, std::size_t index) const;

    HygConstructionEditor & m_editor;
    QVBoxLayout * m_layout;
    std::vector<HygConstructionHint> m_hints;
};

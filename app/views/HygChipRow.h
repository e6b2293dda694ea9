#pragma once

#include "views/HygChipButton.h"

#include <QWidget>

#include <vector>

/// Chips beside one another, which shrink to their icons where there is no room for their words.
class HygChipRow : public QWidget {
    Q_OBJECT
public:
    explicit HygChipRow(QWidget * parent = nullptr);

    HygChipButton & add();
    /// The tool tip says the words too, for when they are not to be seen.
    void setTexts(std::size_t index, const QString & text, const QString & toolTip);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent * event) override;
    bool event(QEvent * event) override;

private:
    QSize hint(bool isCompact) const;
    void fold();

    std::vector<HygChipButton *> m_chips;
};

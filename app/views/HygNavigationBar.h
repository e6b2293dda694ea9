#pragma once

#include <QWidget>

#include <map>

class HygNavigationButton;
class QButtonGroup;
class QVBoxLayout;

/// The bar at the left: one button a view, of which one is pressed, and tools at its foot.
class HygNavigationBar : public QWidget {
    Q_OBJECT
public:
    explicit HygNavigationBar(QWidget * parent = nullptr);

    /// Views stand in the order of their numbers, whenever they are added.
    HygNavigationButton & addView(int id, const QString & iconName);
    HygNavigationButton & addTool(const QString & iconName);
    void setCurrent(int id);

signals:
    void selected(int id);

protected:
    void paintEvent(QPaintEvent * event) override;

private:
    QButtonGroup * m_group;
    QVBoxLayout * m_views;
    QVBoxLayout * m_tools;
    std::map<int, HygNavigationButton *> m_buttons;
};

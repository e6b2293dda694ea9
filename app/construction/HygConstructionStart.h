#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

/// What stands in place of the drawing while there is nothing to draw: what to do first.
class HygConstructionStart : public QFrame {
    Q_OBJECT
public:
    explicit HygConstructionStart(QWidget * parent = nullptr);

signals:
    void layerRequested();
    void detailRequested();

protected:
    void changeEvent(QEvent * event) override;

private:
    void retranslate();

    QLabel * m_title;
    QLabel * m_text;
    QPushButton * m_layer;
    QPushButton * m_detail;
    QLabel * m_hint;
};

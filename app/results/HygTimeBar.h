#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QSlider;
class QTimer;
class QToolButton;

/// Chooses one of the time points of results, by hand or by playing them.
class HygTimeBar : public QWidget {
    Q_OBJECT
public:
    explicit HygTimeBar(QWidget * parent = nullptr);

    /// Keeps the index as far as it can.
    void setCount(std::size_t count);
    std::size_t count() const;
    std::size_t index() const;
    void setIndex(std::size_t index);
    /// What the index stands for.
    void setText(const QString & text);
    bool isPlaying() const;
    void setPlaying(bool on);

signals:
    void indexChanged(std::size_t index);

protected:
    void changeEvent(QEvent * event) override;
    void hideEvent(QHideEvent * event) override;

private:
    void step(int by);
    void advance();
    void retranslate();

    QToolButton * m_back;
    QToolButton * m_play;
    QToolButton * m_forward;
    QSlider * m_slider;
    QLabel * m_text;
    QComboBox * m_speed;
    QTimer * m_timer;
};

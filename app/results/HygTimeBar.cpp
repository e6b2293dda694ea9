#include "HygTimeBar.h"

#include "HygIconEngine.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QSlider>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int FRAME_MS = 50;                ///< 20 pictures a second
constexpr double DURATIONS[] = {30, 10, 4}; ///< [s] that playing all takes
constexpr int TEXT_WIDTH = 22;              ///< characters

} // namespace

HygTimeBar::HygTimeBar(QWidget * parent)
    : QWidget(parent), m_back(new QToolButton(this)), m_play(new QToolButton(this)), m_forward(new QToolButton(this)),
      m_slider(new QSlider(Qt::Horizontal, this)), m_text(new QLabel(this)), m_speed(new QComboBox(this)),
      m_timer(new QTimer(this)) {
    auto * layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    const std::pair<QToolButton *, const char *> buttons[] = {
        {m_back,    "timeBack"   },
        {m_play,    "timePlay"   },
        {m_forward, "timeForward"},
    };
    for (const auto & [button, name] : buttons) {
        button->setObjectName(QLatin1String(name));
        button->setAutoRaise(true);
        layout->addWidget(button);
    }
    m_back->setArrowType(Qt::LeftArrow);
    m_forward->setArrowType(Qt::RightArrow);
    m_play->setCheckable(true);
    m_slider->setObjectName(QStringLiteral("timeSlider"));
    m_text->setObjectName(QStringLiteral("timeText"));
    m_text->setMinimumWidth(m_text->fontMetrics().averageCharWidth() * TEXT_WIDTH);
    m_speed->setObjectName(QStringLiteral("timeSpeed"));
    for ([[maybe_unused]] const double duration : DURATIONS)
        m_speed->addItem(QString());
    m_speed->setCurrentIndex(1);
    layout->addWidget(m_slider, 1);
    layout->addWidget(m_text);
    layout->addWidget(m_speed);
    m_timer->setInterval(FRAME_MS);
    m_timer->setTimerType(Qt::PreciseTimer);

    connect(m_slider, &QSlider::valueChanged, this,
            [this](int value) { emit indexChanged(static_cast<std::size_t>(value)); });
    connect(m_back, &QToolButton::clicked, this, [this] { step(-1); });
    connect(m_forward, &QToolButton::clicked, this, [this] { step(1); });
    connect(m_play, &QToolButton::toggled, this, &HygTimeBar::setPlaying);
    connect(m_timer, &QTimer::timeout, this, &HygTimeBar::advance);
    setCount(0);
    retranslate();
}

void HygTimeBar::setCount(std::size_t count) {
    setEnabled(count > 1);
    m_slider->setMaximum(count == 0 ? 0 : static_cast<int>(count) - 1);
    m_slider->setPageStep(std::max(1, m_slider->maximum() / 20));
    if (count < 2)
        setPlaying(false);
}

std::size_t HygTimeBar::count() const {
    return static_cast<std::size_t>(m_slider->maximum()) + 1;
}

std::size_t HygTimeBar::index() const {
    return static_cast<std::size_t>(m_slider->value());
}

void HygTimeBar::setIndex(std::size_t index) {
    m_slider->setValue(static_cast<int>(index));
}

void HygTimeBar::setText(const QString & text) {
    m_text->setText(text);
}

bool HygTimeBar::isPlaying() const {
    return m_timer->isActive();
}

void HygTimeBar::setPlaying(bool on) {
    if (on == isPlaying())
        return;
    if (on && m_slider->value() == m_slider->maximum())
        m_slider->setValue(0);
    on ? m_timer->start() : m_timer->stop();
    m_play->setChecked(on);
    retranslate();
}

void HygTimeBar::step(int by) {
    setPlaying(false);
    m_slider->setValue(m_slider->value() + by);
}

void HygTimeBar::advance() {
    const double frames = DURATIONS[m_speed->currentIndex()] * 1000 / FRAME_MS;
    m_slider->setValue(m_slider->value() + std::max(1, static_cast<int>(m_slider->maximum() / frames)));
    if (m_slider->value() == m_slider->maximum())
        setPlaying(false);
}

void HygTimeBar::hideEvent(QHideEvent * event) {
    setPlaying(false);
    QWidget::hideEvent(event);
}

void HygTimeBar::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygTimeBar::retranslate() {
    m_play->setIcon(HygIconEngine::icon(isPlaying() ? QStringLiteral("pause") : QStringLiteral("simulation")));
    const std::pair<QWidget *, QString> tips[] = {
        {m_back,    tr("Earlier time point")                         },
        {m_play,    isPlaying() ? tr("Hold") : tr("Play the results")},
        {m_forward, tr("Later time point")                           },
        {m_slider,  tr("Time point that is shown")                   },
        {m_speed,   tr("How fast the results are played")            },
    };
    for (const auto & [widget, tip] : tips) {
        widget->setToolTip(tip);
        widget->setAccessibleName(tip);
    }
    const QString speeds[] = {tr("slow"), tr("normal"), tr("fast")};
    for (int i = 0; i < m_speed->count(); ++i)
        m_speed->setItemText(i, speeds[i]);
}

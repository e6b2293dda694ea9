#include "HygScreenLogView.h"

#include "HygIconEngine.h"

#include <QtExt/Palette.h>

#include <QBoxLayout>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QSyntaxHighlighter>
#include <QTimer>

#include <sys/stat.h>

namespace {

constexpr int PERIOD_MS = 500;
constexpr qint64 MAX_READ = 1 << 20; ///< [bytes] at once; of a larger file the end is shown
constexpr int MAX_LINES = 20000;

/// Lines of warnings and errors in their colours.
class Marker : public QSyntaxHighlighter {
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString & line) override {
        const bool isError = line.contains(QLatin1String("[Error"));
        if (isError || line.contains(QLatin1String("[Warning")))
            setFormat(0, line.size(),
                      QtExt::Palette::color(isError ? QtExt::Palette::ERROR_TEXT : QtExt::Palette::WARNING_TEXT));
    }
};

} // namespace

HygScreenLogView::HygScreenLogView(QWidget * parent)
    : QWidget(parent), m_name(new QLabel(this)), m_search(new QLineEdit(this)), m_text(new QPlainTextEdit(this)),
      m_timer(new QTimer(this)) {
    m_text->setObjectName(QStringLiteral("screenLog"));
    m_text->setReadOnly(true);
    m_text->setUndoRedoEnabled(false);
    m_text->setMaximumBlockCount(MAX_LINES);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    new Marker(m_text->document());
    m_name->setObjectName(QStringLiteral("screenLogName"));
    m_name->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_search->setObjectName(QStringLiteral("screenLogSearch"));
    m_search->setClearButtonEnabled(true);
    m_search->setMaximumWidth(240);
    m_search->addAction(HygIconEngine::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    auto * top = new QHBoxLayout;
    top->addWidget(m_name, 1);
    top->addWidget(m_search);
    auto * layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_text, 1);
    connect(m_timer, &QTimer::timeout, this, &HygScreenLogView::follow);
    connect(m_search, &QLineEdit::returnPressed, this, &HygScreenLogView::find);
    connect(new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, [this] {
                m_search->setFocus();
                m_search->selectAll();
            });
    m_timer->setInterval(PERIOD_MS);
    retranslate();
}

void HygScreenLogView::setFile(const QString & path) {
    m_path = path;
    m_title = QDir::toNativeSeparators(path);
    m_position = 0;
    m_inode = 0;
    m_text->clear();
    m_name->setText(m_title);
    follow();
}

void HygScreenLogView::setText(const QString & title, const QString & text) {
    m_path.clear();
    m_title = title;
    m_name->setText(title);
    m_text->setPlainText(text);
    m_text->moveCursor(QTextCursor::End);
}

void HygScreenLogView::follow() {
    QFile file(m_path);
    struct stat status {};
    if (m_path.isEmpty() || !file.open(QIODevice::ReadOnly) || ::fstat(file.handle(), &status) != 0)
        return;
    const qint64 size = file.size();
    if (status.st_ino != m_inode || size < m_position) { // another run began
        m_text->clear();
        m_position = std::max<qint64>(0, size - MAX_READ);
        m_inode = status.st_ino;
    }
    if (!file.seek(m_position))
        return;
    QByteArray news = file.read(MAX_READ);
    news.truncate(news.lastIndexOf('\n') + 1); // a line that is only half there comes later
    if (news.isEmpty())
        return;
    m_position += news.size();
    news.chop(1);
    QScrollBar * bar = m_text->verticalScrollBar();
    const bool isAtEnd = bar->value() == bar->maximum();
    const int place = bar->value();
    m_text->appendPlainText(QString::fromUtf8(news));
    bar->setValue(isAtEnd ? bar->maximum() : place);
}

void HygScreenLogView::find() {
    if (!m_text->find(m_search->text())) { // once more from the top
        m_text->moveCursor(QTextCursor::Start);
        m_text->find(m_search->text());
    }
}

void HygScreenLogView::showEvent(QShowEvent * event) {
    QWidget::showEvent(event);
    follow();
    m_timer->start();
}

void HygScreenLogView::hideEvent(QHideEvent * event) {
    m_timer->stop();
    QWidget::hideEvent(event);
}

void HygScreenLogView::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void HygScreenLogView::retranslate() {
    m_search->setPlaceholderText(tr("Search (Enter: next)"));
    m_search->setToolTip(tr("Finds a text in the log; Enter goes to the next place."));
    m_text->setPlaceholderText(tr("The solver has not written anything yet."));
    m_text->setAccessibleName(tr("Screen log of the solver"));
}

#include "dialogs/HygHelpWindow.h"

#include "HygIconEngine.h"

#include <QtExt/Palette.h>

#include <QBoxLayout>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

namespace {

constexpr int PAGE_MARGIN = 18;

/// Pictures are no wider than the window, and dark ones where the program is dark.
class Pages : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    /// Reads the page anew at the place where it is.
    void readAgain() {
        const int place = verticalScrollBar()->value();
        reload();
        verticalScrollBar()->setValue(place);
    }

protected:
    QVariant loadResource(int type, const QUrl & name) override {
        if (type != QTextDocument::ImageResource)
            return QTextBrowser::loadResource(type, name);
        QString path = source().resolved(name).toLocalFile();
        const QString dark = QString(path).replace(QStringLiteral("_light."), QStringLiteral("_dark."));
        if (QtExt::Palette::isDark() && QFileInfo::exists(dark))
            path = dark;
        const QImage picture(path);
        const int bar = verticalScrollBar()->isVisible() ? 0 : verticalScrollBar()->sizeHint().width();
        const int room = viewport()->width() - 2 * PAGE_MARGIN - bar;
        if (picture.width() <= room || room <= 0)
            return picture;
        const qreal ratio = devicePixelRatioF();
        QImage fitting = picture.scaledToWidth(qRound(room * ratio), Qt::SmoothTransformation);
        fitting.setDevicePixelRatio(ratio);
        return fitting;
    }
    void resizeEvent(QResizeEvent * event) override {
        QTextBrowser::resizeEvent(event);
        if (event->size().width() != event->oldSize().width() && !source().isEmpty())
            m_delay.start();
    }
    void changeEvent(QEvent * event) override {
        QTextBrowser::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !source().isEmpty())
            m_delay.start();
    }

private:
    QTimer & makeDelay() {
        auto * delay = new QTimer(this);
        delay->setSingleShot(true);
        delay->setInterval(150);
        connect(delay, &QTimer::timeout, this, [this] { readAgain(); });
        return *delay;
    }
    QTimer & m_delay = makeDelay();
};

} // namespace

HygHelpWindow::HygHelpWindow(QString directory, QWidget * parent)
    : QDialog(parent), m_directory(std::move(directory)), m_browser(new Pages(this)), m_contents(new QToolButton(this)),
      m_back(new QToolButton(this)), m_forward(new QToolButton(this)) {
    setObjectName(QStringLiteral("helpWindow"));
    setSizeGripEnabled(true);
    resize(720, 640);
    m_browser->setObjectName(QStringLiteral("helpText"));
    m_browser->setOpenExternalLinks(true);
    m_browser->setFrameShape(QFrame::NoFrame);
    m_browser->document()->setDocumentMargin(PAGE_MARGIN);

    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    auto * tools = new QHBoxLayout;
    tools->setContentsMargins(8, 0, 8, 0);
    layout->addLayout(tools);
    layout->addWidget(m_browser, 1);
    const std::pair<QToolButton *, const char *> buttons[] = {
        {m_contents, "start"},
        {m_back,     "undo" },
        {m_forward,  "redo" }
    };
    for (const auto & [button, icon] : buttons) {
        button->setIcon(HygIconEngine::icon(QLatin1String(icon)));
        button->setAutoRaise(true);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        tools->addWidget(button);
    }
    tools->addStretch(1);
    m_back->setShortcut(QKeySequence(QStringLiteral("Alt+Left")));
    m_forward->setShortcut(QKeySequence(QStringLiteral("Alt+Right")));
    m_back->setEnabled(false);
    m_forward->setEnabled(false);
    connect(m_contents, &QToolButton::clicked, this, [this] { showPage(QStringLiteral("index"), m_langId); });
    connect(m_back, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_forward, &QToolButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QWidget::setEnabled);
    retranslate();
}

void HygHelpWindow::showPage(const QString & page, const QString & langId) {
    m_langId = langId;
    const QDir guide(m_directory);
    for (const QString & file :
         {langId + '/' + page, page, langId + QStringLiteral("/index"), QStringLiteral("index")}) {
        const QString path = guide.filePath(file + QStringLiteral(".md"));
        if (QFileInfo(path).isFile()) {
            m_browser->setSource(QUrl::fromLocalFile(path));
            return;
        }
    }
    m_browser->setPlainText(tr("The user guide is not installed: it is missing in folder '%1'.")
                                .arg(QDir::toNativeSeparators(m_directory)));
}

QString HygHelpWindow::currentPage() const {
    return QFileInfo(m_browser->source().path()).completeBaseName();
}

void HygHelpWindow::retranslate() {
    setWindowTitle(tr("User guide"));
    m_browser->setAccessibleName(windowTitle());
    m_contents->setText(tr("Contents"));
    m_back->setText(tr("Back"));
    m_forward->setText(tr("Forward"));
}

void HygHelpWindow::changeEvent(QEvent * event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

#include "dialogs/HygCommandSearch.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int WIDTH = 560;
constexpr int HEIGHT = 380;

enum role_t { PlaceRole = Qt::UserRole, KeysRole, NumberRole };

/// The title at the left; place and keys, paler, at the right.
class CommandDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter * painter, const QStyleOptionViewItem & option, const QModelIndex & index) const override {
        const QString place = index.data(PlaceRole).toString();
        const QString keys = index.data(KeysRole).toString();
        const QString right = keys.isEmpty() ? place : place + QStringLiteral("   ") + keys;
        QStyleOptionViewItem left(option);
        const int width = std::min(option.fontMetrics.horizontalAdvance(right) + 12, option.rect.width() / 2);
        QStyledItemDelegate::paint(painter, option, index.sibling(-1, -1)); // the ground over the whole row
        left.rect.setRight(option.rect.right() - width);
        QStyledItemDelegate::paint(painter, left, index);
        const bool isSelected = (option.state & QStyle::State_Selected) != 0;
        QColor colour = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        colour.setAlphaF(0.7);
        painter->save();
        painter->setPen(colour);
        const QRect area = option.rect.adjusted(option.rect.width() - width, 0, -6, 0);
        painter->drawText(area, Qt::AlignRight | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(right, Qt::ElideLeft, area.width()));
        painter->restore();
    }
    QSize sizeHint(const QStyleOptionViewItem & option, const QModelIndex & index) const override {
        return {WIDTH / 2,
                std::max(QStyledItemDelegate::sizeHint(option, index).height(), option.fontMetrics.height() + 10)};
    }
};

constexpr int NOWHERE = 4;

/// 0 begins the title, 1 begins a word of it, 2 stands within it, 3 in the place.
int rank(const HygCommandSearch::Command & command, const QString & word) {
    const int at = command.title.indexOf(word, 0, Qt::CaseInsensitive);
    if (at == 0)
        return 0;
    if (at > 0)
        return command.title.contains(' ' + word, Qt::CaseInsensitive) ? 1 : 2;
    return command.place.contains(word, Qt::CaseInsensitive) ? 3 : NOWHERE;
}

} // namespace

HygCommandSearch::HygCommandSearch(std::vector<Command> commands, QWidget * parent)
    : QDialog(parent, Qt::Popup), m_commands(std::move(commands)), m_first(m_commands.size()),
      m_field(new QLineEdit(this)), m_list(new QListWidget(this)) {
    setObjectName(QStringLiteral("commandSearch"));
    setWindowTitle(tr("Find a command"));
    m_field->setObjectName(QStringLiteral("commandField"));
    m_field->setPlaceholderText(tr("Command, material or definition…"));
    m_field->setAccessibleName(windowTitle());
    m_field->setToolTip(tr("Some letters of its words; arrow keys choose, Enter runs it"));
    m_field->setClearButtonEnabled(true);
    m_list->setObjectName(QStringLiteral("commandList"));
    m_list->setAccessibleName(tr("Commands found"));
    m_list->setItemDelegate(new CommandDelegate(m_list));
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setFocusPolicy(Qt::NoFocus);
    auto * layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(m_field);
    layout->addWidget(m_list, 1);
    resize(WIDTH, HEIGHT);
    if (parent != nullptr)
        move(parent->mapToGlobal(QPoint((parent->width() - WIDTH) / 2, parent->height() / 8)));
    m_field->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &HygCommandSearch::fill);
    connect(m_field, &QLineEdit::returnPressed, this, &HygCommandSearch::runCurrent);
    connect(m_list, &QListWidget::itemClicked, this, &HygCommandSearch::runCurrent);
    fill();
    m_field->setFocus();
}

void HygCommandSearch::setMore(const std::vector<Command> & commands) {
    m_commands.resize(m_first);
    m_commands.insert(m_commands.end(), commands.begin(), commands.end());
    const int row = m_list->currentRow();
    fill();
    m_list->setCurrentRow(std::clamp(row, 0, std::max(m_list->count() - 1, 0)));
}

std::vector<int> HygCommandSearch::find(const std::vector<Command> & commands, const QString & text) {
    const QStringList words = text.simplified().split(' ', Qt::SkipEmptyParts);
    std::vector<std::pair<int, int>> found; // sum of ranks, number
    for (std::size_t i = 0; i < commands.size(); ++i) {
        int sum = 0;
        const bool isFound = std::all_of(words.begin(), words.end(), [&](const QString & word) {
            const int one = rank(commands[i], word);
            sum += one;
            return one < NOWHERE;
        });
        if (isFound)
            found.emplace_back(sum, static_cast<int>(i));
    }
    std::sort(found.begin(), found.end());
    std::vector<int> numbers;
    for (const auto & [sum, number] : found)
        numbers.push_back(number);
    return numbers;
}

void HygCommandSearch::fill() {
    m_list->clear();
    for (const int number : find(m_commands, m_field->text())) {
        if (m_list->count() == MAX_SHOWN)
            break;
        const Command & command = m_commands[static_cast<std::size_t>(number)];
        auto * item = new QListWidgetItem(command.icon, command.title, m_list);
        item->setData(PlaceRole, command.place);
        item->setData(KeysRole, command.keys);
        item->setData(NumberRole, number);
        item->setData(Qt::AccessibleTextRole, command.title + QStringLiteral(", ") + command.place);
    }
    if (m_list->count() == 0) {
        auto * item = new QListWidgetItem(tr("Nothing found"), m_list);
        item->setFlags(Qt::NoItemFlags);
        return;
    }
    m_list->setCurrentRow(0);
}

void HygCommandSearch::runCurrent() {
    const QListWidgetItem * item = m_list->currentItem();
    if (item == nullptr || (item->flags() & Qt::ItemIsEnabled) == 0)
        return;
    const auto run = m_commands[static_cast<std::size_t>(item->data(NumberRole).toInt())].run;
    accept();
    run();
}

bool HygCommandSearch::eventFilter(QObject * watched, QEvent * event) {
    if (watched == m_field && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        const int page = std::max(1, m_list->height() / std::max(1, m_list->sizeHintForRow(0)));
        const int step = key == Qt::Key_Down       ? 1
                         : key == Qt::Key_Up       ? -1
                         : key == Qt::Key_PageDown ? page
                         : key == Qt::Key_PageUp   ? -page
                                                   : 0;
        if (step != 0 && m_list->count() > 0) {
            m_list->setCurrentRow(std::clamp(m_list->currentRow() + step, 0, m_list->count() - 1));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

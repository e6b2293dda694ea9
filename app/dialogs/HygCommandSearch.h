#pragma once

#include <QDialog>

#include <functional>
#include <vector>

class QLineEdit;
class QListWidget;

/// A field that finds commands by a few letters of their words and runs the chosen one.
class HygCommandSearch : public QDialog {
    Q_OBJECT
public:
    struct Command {
        QString title;
        QString place; ///< where it stands otherwise: its menu, or the kind of a definition
        QString keys;  ///< its shortcut
        QIcon icon;
        std::function<void()> run;
    };

    /// Most commands that are listed at once.
    static constexpr int MAX_SHOWN = 200;

    HygCommandSearch(std::vector<Command> commands, QWidget * parent);

    /// Commands that are found later, behind those of the beginning; replaces those set before.
    void setMore(const std::vector<Command> & commands);

    /// The numbers of the commands that hold every word of \p text, the best first: words at the beginning of the title
    /// before words within it before words of the place.
    static std::vector<int> find(const std::vector<Command> & commands, const QString & text);

protected:
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    void fill();
    void runCurrent();

    std::vector<Command> m_commands;
    std::size_t m_first; ///< number of the commands of the beginning
    QLineEdit * m_field;
    QListWidget * m_list;
};

#pragma once

#include <QDialog>

/// What this program is, its version and licence, and the libraries it stands on.
class HygAboutDialog : public QDialog {
    Q_OBJECT
public:
    explicit HygAboutDialog(QWidget * parent = nullptr);

    /// Versions of the program and its surroundings, as a report of a fault needs them; not translated.
    static QString versions();
};

#pragma once

#include "format/typed_text.h"

#include <QLineEdit>

// A text box without a border and without a limit of length. What a person types or pastes is admitted
// only as far as the data files can carry it, and a tool-tip names what was left out; text that the
// program puts in stays as it is, also when an undo brings it back.
class TextBox : public QLineEdit
{
    Q_OBJECT
public:
    explicit TextBox(QWidget *parent);

protected:
    // What becomes of text that a person put in.
    virtual TypedText admit(const QString &typed) const { return carriedByFiles(typed); }

    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    void putIn(QString typed);
    void admitEdit();
    void tellLeftOut(const QStringList &characters);

    QString before_; // the text before the edit that is under way
};

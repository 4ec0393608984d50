#include "intake/coming_view.h"
#include "intake/intake_window.h"

#include <QMenu>
#include <QShortcut>

// What can be done with the rows of the window "Bring in songs", by its context menu and by keys.

// All pages of the chosen rows, or those of the current one's column if that is a column of pages.
QModelIndexList IntakeWindow::chosenPages() const
{
    QModelIndexList pages;
    const auto current = ComingColumn(view_->currentIndex().column());
    const QList<int> rows = view_->chosenRows();
    for (const int row : rows) {
        for (const ComingColumn column : {ComingColumn::Left, ComingColumn::Right}) {
            const bool isOther =
                (current == ComingColumn::Left || current == ComingColumn::Right) && current != column;
            const QModelIndex page = table_.index(row, static_cast<int>(column));
            if (!isOther && table_.pageAt(page).exists())
                pages += page;
        }
    }
    return pages;
}

void IntakeWindow::makeDeeds()
{
    const auto rows = [this] { return view_->chosenRows(); };
    const auto current = [this] { return view_->currentIndex(); };
    const auto anyRow = [=] { return !rows().isEmpty(); };
    deeds_ = {
        {"Exchange pages", QKeySequence("Ctrl+E"), anyRow, [=, this] { table_.exchangePages(rows()); }},
        {"New song begins here", QKeySequence("Ctrl+N"),
         [=, this] { return table_.canBeginSongAt(current()); },
         [=, this] { table_.beginSongAt(current()); }},
        {"Join with the one above", QKeySequence("Ctrl+J"), [=, this] { return table_.canJoin(rows()); },
         [=, this] { table_.join(rows()); }},
        {"Turn", QKeySequence("Ctrl+T"), [this] { return !chosenPages().isEmpty(); },
         [this] { table_.turn(chosenPages()); }},
        {"Halve", QKeySequence("Ctrl+H"), [=, this] { return table_.canHalve(rows()); },
         [=, this] { table_.halve(rows()); }},
        {},
        {"Tick", {}, anyRow, [=, this] { table_.setTicked(rows(), true); }},
        {"Take the tick away", {}, anyRow, [=, this] { table_.setTicked(rows(), false); }},
    };
    for (const Deed &deed : std::as_const(deeds_)) {
        if (deed.key.isEmpty())
            continue;
        auto *key = new QShortcut(deed.key, view_);
        key->setContext(Qt::WidgetShortcut);
        connect(key, &QShortcut::activated, this, [deed] {
            if (deed.isPossible())
                deed.act();
        });
    }
}

void IntakeWindow::openMenu(const QPoint &placeOnScreen)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName("Chosen songs");
    for (const Deed &deed : std::as_const(deeds_)) {
        const QString key =
            deed.key.isEmpty() ? QString() : '\t' + deed.key.toString(QKeySequence::NativeText);
        if (deed.text.isEmpty())
            menu->addSeparator();
        else
            menu->addAction(deed.text + key, this, deed.act)->setEnabled(deed.isPossible());
    }
    menu->popup(placeOnScreen);
}

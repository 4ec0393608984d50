#include "songs/edits.h"

#include "text/counting.h"

#include <QUndoCommand>

#include <algorithm>

Module1State::Column &columnOf(Field field)
{
    switch (field) {
    case Field::Title:
        return Module1.recTitle;
    case Field::Author:
        return Module1.recAuthor;
    case Field::Tags:
        return Module1.recTags;
    case Field::Category:
        break;
    }
    return Module1.recCategory;
}

static QString nameOf(Field field)
{
    static const QString names[] = {"title", "author", "tags", "category"};
    return names[static_cast<size_t>(field)];
}

// One field of some records, before and after.
class EditStep : public QUndoCommand
{
public:
    static constexpr int notTyped = -1;

    EditStep(Edits &edits, Field field, const QList<int> &records, const QStringList &texts, int run)
        : edits_(edits)
        , field_(field)
        , records_(records)
        , after_(texts)
        , run_(run)
    {
        for (const int n : records)
            before_ += columnOf(field)[static_cast<size_t>(n)];
        const QString which =
            records.size() == 1 ? QString::number(records[0]) : counted(records.size(), "song");
        setText(nameOf(field) + " of " + which);
    }

    void undo() override
    {
        edits_.store(field_, records_, before_);
        edits_.rest();
        emit edits_.steppedTo(records_);
    }

    void redo() override
    {
        edits_.store(field_, records_, after_);
        if (wasUndone_) {
            edits_.rest();
            emit edits_.steppedTo(records_);
        }
        wasUndone_ = true;
    }

    int id() const override { return run_ == notTyped ? -1 : 1; }

    bool mergeWith(const QUndoCommand *command) override
    {
        const auto *next = static_cast<const EditStep *>(command);
        if (next->run_ != run_ || next->field_ != field_ || next->records_ != records_)
            return false;
        after_ = next->after_;
        setObsolete(after_ == before_);
        return true;
    }

private:
    Edits &edits_;
    const Field field_;
    const QList<int> records_;
    QStringList before_;
    QStringList after_;
    const int run_;
    bool wasUndone_ = false; // whatever is done after the first time was undone before
};

void Edits::set(Field field, const QList<int> &records, const QStringList &texts)
{
    QList<int> differing;
    QStringList others;
    for (qsizetype i = 0; i < records.size(); i += 1) {
        if (columnOf(field)[static_cast<size_t>(records[i])] == texts[i])
            continue;
        differing += records[i];
        others += texts[i];
    }
    if (!differing.isEmpty())
        stack_.push(new EditStep(*this, field, differing, others, EditStep::notTyped));
}

void Edits::type(Field field, int record, const QString &text)
{
    if (columnOf(field)[static_cast<size_t>(record)] != text)
        stack_.push(new EditStep(*this, field, {record}, {text}, run_));
}

static std::array<QString, 4> fieldsOf(int record)
{
    const auto n = static_cast<size_t>(record);
    return {Module1.recTitle[n], Module1.recAuthor[n], Module1.recTags[n], Module1.recCategory[n]};
}

void Edits::store(Field field, const QList<int> &records, const QStringList &texts)
{
    for (qsizetype i = 0; i < records.size(); i += 1) {
        if (!onDisk_.contains(records[i]))
            onDisk_.insert(records[i], fieldsOf(records[i]));
        columnOf(field)[static_cast<size_t>(records[i])] = texts[i];
    }
    Module1.archiveChanged = !unsavedRecords().isEmpty();
    emit changed(records);
}

void Edits::added()
{
    rest();
    Module1.archiveChanged = true;
    emit changed({Module1.recCount});
}

void Edits::beginAnew()
{
    rest();
    onDisk_.clear();
    countOnDisk_ = Module1.recCount;
}

void Edits::saved()
{
    const QList<int> records = unsavedRecords();
    beginAnew();
    emit changed(records);
}

void Edits::loaded()
{
    beginAnew();
    // What was typed while an archive was begun stands behind its records, and has no numbers yet.
    while (Module1.archiveChanged && countOnDisk_ > 0
           && Module1.recNumber[static_cast<size_t>(countOnDisk_)].isEmpty())
        countOnDisk_ -= 1;
    stack_.clear();
    emit replaced();
}

std::optional<std::array<QString, 4>> Edits::asOnDisk(int record) const
{
    const auto found = onDisk_.find(record);
    return found == onDisk_.end() || record > countOnDisk_ ? std::nullopt : std::optional(*found);
}

QList<int> Edits::unsavedRecords() const
{
    QList<int> records;
    for (auto edited = onDisk_.begin(); edited != onDisk_.end(); ++edited) {
        if (edited.key() <= countOnDisk_ && edited.value() != fieldsOf(edited.key()))
            records += edited.key();
    }
    std::sort(records.begin(), records.end());
    for (int n = countOnDisk_ + 1; n <= Module1.recCount; n += 1)
        records += n;
    return records;
}

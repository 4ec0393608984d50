#include "archive/Module1.h"
#include "files/data_folder.h"
#include "files/safe_write.h"
#include "look/look.h"
#include "midi/midifrm.h"
#include "support/ratio.h"
#include "support/test_folder.h"

#include <QApplication>

#include <cstring>
#include <string>

static QByteArray fileOf(int blocks)
{
    QByteArray bytes("var midi = [\r\n");
    for (int song = 1; song <= blocks; song += 1)
        bytes += '"' + QByteArray::number(song) + "\",\r\n" + QByteArray("\"121,000,005\",\r\n").repeated(16);
    return bytes + " ];\r\n";
}

static void readAndFindQuotes()
{
    static volatile qsizetype quotes = 0;
    QByteArray bytes;
    if (!readWhole(midiPath(), bytes).ok())
        qFatal("no file to read");
    const char *end = bytes.constData() + bytes.size();
    const char *from = bytes.constData();
    while (const void *quote = std::memchr(from, '"', static_cast<size_t>(end - from))) {
        quotes = quotes + 1;
        from = static_cast<const char *>(quote) + 1;
    }
}

static void read(MidiTable &table)
{
    table = {};
    if (!readMidiFile(table).ok())
        qFatal("not read");
}

static void compareReading(const std::string &blocks)
{
    const std::string task = "read " + blocks + " blocks of MIDI settings and find a song";
    MidiTable table;
    MidiFields fields;
    const auto readAll = [&] {
        read(table);
        if (collectMidiFields(table, 3000, fields) != 1)
            qFatal("no such song");
    };
    compare({task.c_str(), "read the bytes and find the quotes", 2.0}, readAll, readAndFindQuotes);
}

static void compareOpening(const std::string &blocks)
{
    const std::string task = "open the MIDI window on " + blocks + " blocks";
    midifrm window;
    Module1.midiRecord = 3000;
    const auto open = [&] {
        window.unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        window.show();
        QCoreApplication::processEvents();
    };
    const auto openWithoutFile = [&] {
        readAndFindQuotes();
        if (!QFile::rename(midiPath(), "aside.js"))
            qFatal("not put aside");
        open();
        if (!QFile::rename("aside.js", midiPath()))
            qFatal("not put back");
    };
    compare({task.c_str(), "open it without a file, read the bytes and find the quotes", 2.0}, open,
            openWithoutFile);
}

static void takeInChanges(MidiTable &table)
{
    MidiTable onDisk = table;
    if (!readMidiFile(onDisk).ok())
        qFatal("not read");
    table = std::move(onDisk);
}

// A save takes in what may have changed on the disk, then writes the file.
static void compareSaving(const std::string &blocks, const QByteArray &bytes)
{
    const std::string task = "save one song's settings among " + blocks + " blocks";
    MidiTable table;
    read(table);
    int round = 0;
    const auto save = [&] {
        MidiFields fields;
        fields.midiFieldMsb.fill(QString::number(round++ % 128));
        takeInChanges(table);
        if (!writeMidiFile(table, 3000, fields).ok())
            qFatal("not saved");
    };
    const auto write = [&] {
        if (!replaceFile("spartiti/same.js", bytes).ok())
            qFatal("not written");
    };
    compare({task.c_str(), "write the same bytes in the same safe order", 1.5, 25}, save, write);
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    applyLook(app);
    for (const int blocks : {3000, 170000}) {
        TestFolder folder;
        const QByteArray bytes = fileOf(blocks);
        put(midiPath(), bytes);
        const std::string shown = std::to_string(blocks);
        compareReading(shown);
        compareOpening(shown);
        compareSaving(shown, bytes);
    }
    return 0;
}

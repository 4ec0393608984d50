// The picture path: any bytes under a page's name give a picture of the frame's size, or none.

#include "memory_files.h"
#include "pages/page_image.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    static int argc = 1;
    static char program[] = "picture_fuzz";
    static char *argv[] = {program, nullptr};
    static const QCoreApplication application(argc, argv);
    static const QTemporaryDir folder;
    static const QtMessageHandler silent =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    Q_UNUSED(silent)

    QFile page(folder.filePath("1L.jpg"));
    require(page.open(QIODevice::WriteOnly) && page.write(data, static_cast<qint64>(size)) >= 0);
    page.close();
    const QSize frame(40, 56);
    const QImage picture = decodePage(page.fileName(), frame);
    require(picture.isNull() || picture.size() == frame);
    return 0;
}

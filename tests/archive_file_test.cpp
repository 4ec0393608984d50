#include <QTest>
class Empty : public QObject
{
    Q_OBJECT
};
QTEST_APPLESS_MAIN(Empty)
#include "archive_file_test.moc"

#include <QTest>
class Empty : public QObject
{
    Q_OBJECT
};
QTEST_APPLESS_MAIN(Empty)
#include "main_window_test.moc"

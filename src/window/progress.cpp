#include "window/progress.h"

#include "window/message_box.h"

#include <QProgressDialog>

#include <memory>

static int running = 0;

namespace
{
class ProgressBox
{
public:
    explicit ProgressBox(const QString &doing)
        : dialog_(doing, "Cancel", 0, 0, windowInFront())
    {
        static constexpr int halfASecond = 500;
        running += 1;
        dialog_.setObjectName("progress");
        dialog_.setWindowTitle("Tessaline");
        dialog_.setWindowModality(Qt::ApplicationModal);
        dialog_.setMinimumDuration(halfASecond);
        dialog_.setMinimumWidth(400);
    }
    ~ProgressBox() { running -= 1; }
    Q_DISABLE_COPY_MOVE(ProgressBox)

    bool goOn(int done, int all)
    {
        dialog_.setMaximum(all);
        dialog_.setValue(done);
        return !dialog_.wasCanceled();
    }

private:
    QProgressDialog dialog_;
};
} // namespace

std::function<bool(int done, int all)> progressBox(const QString &doing)
{
    const auto box = std::make_shared<ProgressBox>(doing);
    return [box](int done, int all) { return box->goOn(done, all); };
}

bool isWorkRunning()
{
    return running > 0;
}

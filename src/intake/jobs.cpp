#include "intake/jobs.h"

#include "files/platform.h"

#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

static constexpr qint64 mostMemory = 500'000'000;
static constexpr qsizetype mostOutput = 128 << 20;

Jobs::~Jobs()
{
    for (const auto &running : running_) {
        running->process.disconnect();
        running->process.kill();
        running->process.waitForFinished(1000);
    }
}

size_t Jobs::add(const Job &job)
{
    jobs_.push_back(job);
    return jobs_.size() - 1;
}

void Jobs::read(Running &running)
{
    running.outcome.output += running.process.readAllStandardOutput();
    if (running.outcome.output.size() > mostOutput)
        running.process.kill();
}

void Jobs::start(Running &running, const Job &job)
{
    QProcess &process = running.process;
    limitMemory(process, mostMemory);
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, [&] { read(running); });
    QObject::connect(&process, &QProcess::errorOccurred, &process, [&](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        running.outcome.end = End::NoSuchProgram;
        running.hasEnded = true;
    });
    QObject::connect(&process, &QProcess::finished, &process, [&](int code, QProcess::ExitStatus status) {
        read(running);
        running.outcome.errors = process.readAllStandardError();
        if (running.outcome.end == End::Done && (status != QProcess::NormalExit || code != 0))
            running.outcome.end = End::Failed;
        running.hasEnded = true;
    });
    running.since.start();
    process.start(job.program, job.arguments, QIODevice::ReadOnly);
    process.closeWriteChannel();
}

// A few are done ahead, so that no core waits while a page is stored.
void Jobs::startMore()
{
    const auto cores = static_cast<size_t>(qMax(1, QThread::idealThreadCount()));
    size_t busy = 0;
    for (const auto &running : running_)
        busy += !running->hasEnded;
    while (busy < cores && running_.size() < 4 * cores && first_ + running_.size() < jobs_.size()) {
        running_.push_back(std::make_unique<Running>());
        start(*running_.back(), jobs_[first_ + running_.size() - 1]);
        busy += 1;
    }
}

void Jobs::endWhatTakesTooLong()
{
    for (const auto &running : running_) {
        if (running->hasEnded || !running->since.hasExpired(secondsEach_ * 1000))
            continue;
        running->outcome.end = End::TookTooLong;
        running->process.kill();
    }
}

Jobs::Outcome Jobs::take(size_t place, const std::function<bool()> &goOn)
{
    while (first_ < place && !running_.empty()) {
        running_.pop_front();
        first_ += 1;
    }
    first_ = place;
    startMore();
    while (!running_.front()->hasEnded) {
        QEventLoop loop;
        QTimer::singleShot(50ms, &loop, &QEventLoop::quit);
        for (const auto &running : running_)
            QObject::connect(&running->process, &QProcess::finished, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        endWhatTakesTooLong();
        startMore();
        if (goOn && !goOn())
            return {End::Stopped, {}, {}};
    }
    const Outcome outcome = std::move(running_.front()->outcome);
    running_.pop_front();
    first_ += 1;
    startMore();
    return outcome;
}

#pragma once

#include "controls/openable.h"

// The mark that a song has a recording. Its picture is read when it is first seen.
class RecordingMark : public Openable
{
    Q_OBJECT
public:
    using Openable::Openable;

protected:
    void paintEvent(QPaintEvent *event) override;
};

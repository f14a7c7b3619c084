// A lesson with brakes in a scripted player.
#pragma once

#include "tests/playback/engine_fixture.h"

namespace orvanta::test {

class Brakes : public EngineTest
{
protected:
    Brakes() { control.duration = 40; }

    void playLesson(Int16 brake = 1)
    {
        addBrakes({u"5"_s, u"12"_s, u"20"_s});
        play(1, brake);
    }
};

} // namespace orvanta::test

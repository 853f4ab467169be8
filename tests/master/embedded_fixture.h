#pragma once

#include "data/connection_settings.h"
#include "support/embedded_world.h"

#include <doctest/doctest.h>

namespace inin {

/// A table class on a session with the embedded database, branch 1, sub-branch 2.
template <class Table> struct EmbeddedFixture : EmbeddedWorld {
    EmbeddedFixture()
    {
        REQUIRE_MESSAGE(started.isConnected(), started.csErrMsg);
        REQUIRE(table.iInit(session) == iGood);
    }
    Table *operator->() { return &table; }

    StartedSession started = startSession(site);
    cT_ADODB &session = *started.session;
    Table table{site};
};

} // namespace inin

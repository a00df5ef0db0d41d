#pragma once

#include "simulator/arm.h"
#include "simulator/refusals.h"

#include <QElapsedTimer>
#include <json/json.h>

/// A layout list that is coming in chunks: nothing of it is stored before it is complete.
struct LayoutTransfer {
    int robot = 0;
    int craft = 0;
    int graphic = 0;
    int sum = 0; ///< workpieces in all
    Json::Value items{Json::arrayValue}; ///< those that have come
};

/// What the controller keeps of one connected pendant.
struct Session {
    int number = 0; ///< its own; motions belong to it
    int robot = 1; ///< the one it works with; messages that name no robot are about this one
    Jog jog; ///< what was last asked for
    LayoutTransfer transfer;
    bool isTold = false; ///< it was told a word of the message that is carried out
    Refusals refusals;
    QElapsedTimer sinceStoreWord; ///< since it was last told of the store; invalid: never was
};

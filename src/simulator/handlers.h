#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <functional>
#include <json/json.h>
#include <vector>

class JobShelf;
class ParameterStore;
class RobotCell;
struct Session;

/// One message of a pendant on its way through its handler.
struct Request {
    const Json::Value &body; ///< an object; empty for a message without a body
    ParameterStore &store;
    /// Sends a reply to the pendant that asked, once what the message stores is on the disk.
    std::function<void(quint16 id, const Json::Value &body)> reply;
    Session &session; ///< of that pendant
    RobotCell &cell;
    /// Tells that pendant a word of armwords.h.
    std::function<void(const char *word)> tell;
    JobShelf &jobs;
};

/// Carries a message out. Null when the controller took it, else what is wrong with it, for the
/// log; a refused message changes nothing and gets no reply. What it stores is one transaction, and
/// one that has met something unreadable in the store is refused, whatever the handler made of it.
using Handler = const char *(*)(Request &request);

struct HandlerRow {
    quint16 id;
    Handler handle;
};
using HandlerTable = std::vector<HandlerRow>;

// One table per package or topic, in the file of that name.
HandlerTable polishHandlers();
HandlerTable palletModeHandlers();
HandlerTable palletGripperHandlers();
HandlerTable palletTrayHandlers();
HandlerTable palletPositionHandlers();
HandlerTable palletWorkpieceHandlers();
HandlerTable palletOverlapHandlers();
HandlerTable palletPlaneHandlers();
HandlerTable toolFrameHandlers();
HandlerTable userFrameHandlers();
HandlerTable armHandlers();
HandlerTable jobHandlers();

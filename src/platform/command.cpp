#include "command.h"

Command::Command(Type kind) : type(kind) { }

Json::Value Command::toJson() const
{
    Json::Value json;
    json["type"] = type;
    return json;
}

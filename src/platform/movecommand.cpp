#include "movecommand.h"

#include "robotpos.h"

MoveCommand::MoveCommand(Type kind) : Command(kind) { }

Json::Value MoveCommand::toJson() const
{
    Json::Value json = Command::toJson();
    json["moveParamA"] = moveParamA;
    json["moveKind"] = moveKind;
    json["moveParamB"] = moveParamB;
    json["moveParamC"] = moveParamC;
    json["moveParamD"] = moveParamD;
    json["moveParamE"] = moveParamE;
    json["moveParamF"] = moveParamF;
    json["moveParamG"] = moveParamG;
    json["moveParamH"] = moveParamH;
    json["moveParamI"] = moveParamI;
    json["reserved1"] = reserved1;
    json["reserved2"] = reserved2;
    json["positionId"] = positionId;
    if (position)
        json["position"] = position->toJson();
    json["reservedText"] = reservedText.toStdString();
    json["frameName"] = frameName.toStdString();
    json["reserved3"] = reserved3;
    json["reserved4"] = reserved4;
    json["reserved5"] = reserved5;
    json["reserved6"] = reserved6;
    return json;
}

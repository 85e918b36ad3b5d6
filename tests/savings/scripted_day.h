#pragma once

#include "link/records.h"
#include "simulator/xml.h"

#include <string>

namespace voltaro {

// A day worked by hand. Off until 08:00; idle from 10:00 to 12:00, of it dim 30 min and monitor off 60 min; shut down
// from 20:00 to 22:00.
inline std::wstring ScriptedDay()
{
    Element details{L"details", {}, {}};
    for (const wchar_t* line :
        {L"QUptme # 2024/02/29 08:00:00", L"Istime # 2024/02/29 10:00:00", L"Dstime # 2024/02/29 10:10:00",
            L"Detime # 2024/02/29 10:40:00", L"Mstime # 2024/02/29 10:40:00", L"Metime # 2024/02/29 11:40:00",
            L"Ietime # 2024/02/29 12:00:00", L"Sdtime # 2024/02/29 20:00:00", L"SUptme # 2024/02/29 22:00:00"})
        details.children.push_back(TextElement(L"event", line));
    return simulator::ReplyText({L"response", {}, {details}});
}

// Round powers: 53.75 W with the usual load, 50 W idle.
inline PowerConsumptionData RoundProfile()
{
    PowerConsumptionData record;
    record.monitorType = L"LCD";
    record.monitorOnPower = L"20.00";
    record.monitorOffPower = L"1.00";
    record.cpuMaxPower = L"60.00";
    record.cpuIdlePower = L"30.00";
    record.cpuStandbyPower = L"2.00";
    record.cpuOffPower = L"1.00";
    return record;
}

} // namespace voltaro

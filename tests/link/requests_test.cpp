#include "link/requests.h"

#include "base/text.h"

#include <gtest/gtest.h>

namespace voltaro {
namespace {

// name(child,child) or name=text, one line.
std::wstring Notation(const Element& element)
{
    if (element.children.empty())
        return element.name + L"=" + std::wstring(element.text);
    std::wstring text = element.name + L"(";
    for (const Element& child : element.children)
        text += Notation(child) + L",";
    text.back() = L')';
    return text;
}

// A record whose fields hold "1", "2", ... in the order in which the record declares its elements.
template <class Record>
Record Numbered()
{
    std::vector<Element> elements;
    for (std::size_t i = 1; i <= FieldsOf<Record>::kTable.size(); ++i)
        elements.push_back(TextElement(L"any", NumberText(static_cast<std::int64_t>(i))));
    return RecordOf<Record>(elements);
}

TEST(RequestsTest, FieldsFollowTheOperation)
{
    EXPECT_EQ(Notation(RequestElement(Plain(Operation::GetPowerSchemes), L"{ID}")),
        L"request(MessageId={ID},operation=GetPowerSchemes)");
    EXPECT_EQ(Notation(RequestElement(WithText(Operation::DeleteScheme, L"scheme", L"Mine"), L"{ID}")),
        L"request(MessageId={ID},operation=DeleteScheme,scheme=Mine)");
    EXPECT_EQ(Notation(RequestElement(WithText(Operation::LogOff, L"monitoroff", L"No"), L"")),
        L"request(MessageId=,operation=logoff,monitoroff=No)");
}

TEST(RequestsTest, RecordsTravelInTheirElementOrder)
{
    EXPECT_EQ(Notation(ElementOf(L"details", Numbered<PowerSchemeSettings>())),
        L"details(PowerScheme=1,CPUSpeed=2,Screensaver=3,LockScreentime=4,Wbrightvalue=5,Ibrightvalue=6,Dimtime=7,"
        L"Monitortime=8,StandBytime=9,Hibernatetime=10,HardDiskTimeOut=11,Logofftime=12,Shutdowntime=13,Shutdownflag="
        L"14,"
        L"DownloadsFlag=15,PPasswordprotected=16,Appsensorname=17,RunScriptBeforePowerOff=18,IdleCPULoad=19,"
        L"IdleCPULoadFlag=20,TrackingPrinterFlag=21)");
    EXPECT_EQ(Notation(ElementOf(L"details", Numbered<SnoozeSettings>())),
        L"details(SnoozeForIdlePwrAction=1,SnoozeForSchedulerPwrAction=2,SnoozeNotifiTimeoutForIdlePwrAction=3,"
        L"SnoozeNotifiTimeoutForSchedulerPwrAction=4,SnoozeTimeout=5)");
    EXPECT_EQ(Notation(ElementOf(L"details", Numbered<ProxySettings>())),
        L"details(UseProxy=1,ProxyServer=2,ProxyPort=3,UseAuthentication=4,UserName=5,Password=6,SavePassword=7)");
    EXPECT_EQ(Notation(ElementOf(L"details", Numbered<HostSettings>())),
        L"details(Localhost=1,TCPPort=2,UDPPort=3,MonitoringIP=4,MonitoringTCPPort=5,RemoteManager1=6,"
        L"RemoteManager1Enable=7,RemoteManager2=8,RemoteManager2Enable=9,MonitoringURL=10,MonitoringURLEnable=11,"
        L"MonitoringIPEnable=12)");
    EXPECT_EQ(Notation(ElementOf(L"details", Numbered<PowerConsumptionData>())),
        L"details(ManualSetFlag=1,MonitorType=2,MonitorSize=3,MonitorONPower=4,MonitorOFFPower=5,CPUMaxPower=6,"
        L"CPUIdlePower=7,CPUStandbyPower=8,CPUOffPower=9,System_Type=10,Processor_Type=11,System_Manufacturer=12,"
        L"System_Model=13)");
    EXPECT_EQ(Notation(ElementOf(L"details", Numbered<DeviceSettings>())),
        L"details(FireWall=1,UsbStorage=2,CDDVDRom=3,BlueTooth=4,WIFI=5,WebCam=6,RegistryEdit=7,BiosSettingsPassword=8,"
        L"BiosPassWord=9,WLAN=10)");
}

TEST(RequestsTest, PolicyRulesAreNumberedFromOne)
{
    ApplicationSensorPolicy policy{L"Meetings", {Numbered<ApplicationRule>(), {}}};
    const Element details = WithPolicy(Operation::CreatePolicy, policy).fields.at(0);
    EXPECT_EQ(Notation(details),
        L"details(PolicyName=Meetings,AppNo_1(Application_Name=1,Rule_Status=2,Dim_Monitor=3,TO_Monitor=4,Lock_Screen="
        L"5,"
        L"TO_Harddisk=6,Logoff=7,Standby=8,Hibernate=9,Shutdown=10,Description=11),AppNo_2(Application_Name=,Rule_"
        L"Status=,"
        L"Dim_Monitor=,TO_Monitor=,Lock_Screen=,TO_Harddisk=,Logoff=,Standby=,Hibernate=,Shutdown=,Description=))");
    policy.rules.assign(50, {});
    EXPECT_EQ(WithPolicy(Operation::CreatePolicy, policy).fields.at(0).children.back().name, L"AppNo_50");
}

} // namespace
} // namespace voltaro

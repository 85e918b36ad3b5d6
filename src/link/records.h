#pragma once

#include "base/field_text.h"
#include "link/element.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>
#include <vector>

namespace voltaro {

// A record is its field table: one table gives the element order of a request and the positions of a reply.
template <class Record>
struct Field {
    const wchar_t* element;
    FieldText Record::*slot;
};

// The settings of one power scheme; every value a text. Times are whole minutes, "0" for never; flags "Yes" or "No".
// The texts are kept at any length: what the user does not change goes back to the agent as it was read.
struct PowerSchemeSettings {
    FieldText powerScheme, cpuSpeed, screensaver, lockScreenTime, workingBrightness, idleBrightness, dimTime,
        monitorTime, standbyTime, hibernateTime, hardDiskTime, logOffTime, shutdownTime, shutdownFlag, downloadsFlag,
        passwordOnResume, sensorPolicy, scriptBeforePowerOff, idleCpuLoad, idleCpuLoadFlag, printerFlag;

    friend bool operator==(const PowerSchemeSettings&, const PowerSchemeSettings&) = default;
};

inline constexpr Field<PowerSchemeSettings> kPowerSchemeFields[] = {
    {L"PowerScheme", &PowerSchemeSettings::powerScheme},
    {L"CPUSpeed", &PowerSchemeSettings::cpuSpeed},
    {L"Screensaver", &PowerSchemeSettings::screensaver},
    {L"LockScreentime", &PowerSchemeSettings::lockScreenTime},
    {L"Wbrightvalue", &PowerSchemeSettings::workingBrightness},
    {L"Ibrightvalue", &PowerSchemeSettings::idleBrightness},
    {L"Dimtime", &PowerSchemeSettings::dimTime},
    {L"Monitortime", &PowerSchemeSettings::monitorTime},
    {L"StandBytime", &PowerSchemeSettings::standbyTime},
    {L"Hibernatetime", &PowerSchemeSettings::hibernateTime},
    {L"HardDiskTimeOut", &PowerSchemeSettings::hardDiskTime},
    {L"Logofftime", &PowerSchemeSettings::logOffTime},
    {L"Shutdowntime", &PowerSchemeSettings::shutdownTime},
    {L"Shutdownflag", &PowerSchemeSettings::shutdownFlag},
    {L"DownloadsFlag", &PowerSchemeSettings::downloadsFlag},
    {L"PPasswordprotected", &PowerSchemeSettings::passwordOnResume},
    {L"Appsensorname", &PowerSchemeSettings::sensorPolicy},
    {L"RunScriptBeforePowerOff", &PowerSchemeSettings::scriptBeforePowerOff},
    {L"IdleCPULoad", &PowerSchemeSettings::idleCpuLoad},
    {L"IdleCPULoadFlag", &PowerSchemeSettings::idleCpuLoadFlag},
    {L"TrackingPrinterFlag", &PowerSchemeSettings::printerFlag},
};

// One application that suppresses idle actions while it runs. The status is "Enabled" or "Disabled", each flag "Yes" or
// "No": the texts that the policy list shows. They too are kept at any length.
struct ApplicationRule {
    static constexpr std::size_t kEditLimit = 255; // how many units a user may type into a text

    FieldText applicationName, ruleStatus, dimMonitor, monitorOff, lockScreen, hardDisk, logOff, standby, hibernate,
        shutdown, description;

    friend bool operator==(const ApplicationRule&, const ApplicationRule&) = default;
};

inline constexpr Field<ApplicationRule> kApplicationRuleFields[] = {
    {L"Application_Name", &ApplicationRule::applicationName},
    {L"Rule_Status", &ApplicationRule::ruleStatus},
    {L"Dim_Monitor", &ApplicationRule::dimMonitor},
    {L"TO_Monitor", &ApplicationRule::monitorOff},
    {L"Lock_Screen", &ApplicationRule::lockScreen},
    {L"TO_Harddisk", &ApplicationRule::hardDisk},
    {L"Logoff", &ApplicationRule::logOff},
    {L"Standby", &ApplicationRule::standby},
    {L"Hibernate", &ApplicationRule::hibernate},
    {L"Shutdown", &ApplicationRule::shutdown},
    {L"Description", &ApplicationRule::description},
};

inline constexpr std::size_t kMaxRules = 50; // that a policy may be stored with; the agent may hold more

struct ApplicationSensorPolicy {
    std::wstring name;
    std::vector<ApplicationRule> rules;

    friend bool operator==(const ApplicationSensorPolicy&, const ApplicationSensorPolicy&) = default;
};

// The warnings before a power-off. Times are whole minutes.
struct SnoozeSettings {
    FieldText idleAlert, schedulerAlert, idleAlertMinutes, schedulerAlertMinutes, snoozeMinutes;

    friend bool operator==(const SnoozeSettings&, const SnoozeSettings&) = default;
};

inline constexpr Field<SnoozeSettings> kSnoozeFields[] = {
    {L"SnoozeForIdlePwrAction", &SnoozeSettings::idleAlert},
    {L"SnoozeForSchedulerPwrAction", &SnoozeSettings::schedulerAlert},
    {L"SnoozeNotifiTimeoutForIdlePwrAction", &SnoozeSettings::idleAlertMinutes},
    {L"SnoozeNotifiTimeoutForSchedulerPwrAction", &SnoozeSettings::schedulerAlertMinutes},
    {L"SnoozeTimeout", &SnoozeSettings::snoozeMinutes},
};

struct ProxySettings {
    FieldText useProxy, server, port, useAuthentication, userName, password, savePassword;

    friend bool operator==(const ProxySettings&, const ProxySettings&) = default;
};

inline constexpr Field<ProxySettings> kProxyFields[] = {
    {L"UseProxy", &ProxySettings::useProxy},
    {L"ProxyServer", &ProxySettings::server},
    {L"ProxyPort", &ProxySettings::port},
    {L"UseAuthentication", &ProxySettings::useAuthentication},
    {L"UserName", &ProxySettings::userName},
    {L"Password", &ProxySettings::password},
    {L"SavePassword", &ProxySettings::savePassword},
};

// From where, and on which ports, the agent may be managed. Addresses are dotted IPv4.
struct HostSettings {
    FieldText localhost, tcpPort, udpPort, monitoringIp, monitoringTcpPort, remoteManager1, remoteManager1Enable,
        remoteManager2, remoteManager2Enable, monitoringUrl, monitoringUrlEnable, monitoringIpEnable;

    friend bool operator==(const HostSettings&, const HostSettings&) = default;
};

inline constexpr Field<HostSettings> kHostFields[] = {
    {L"Localhost", &HostSettings::localhost},
    {L"TCPPort", &HostSettings::tcpPort},
    {L"UDPPort", &HostSettings::udpPort},
    {L"MonitoringIP", &HostSettings::monitoringIp},
    {L"MonitoringTCPPort", &HostSettings::monitoringTcpPort},
    {L"RemoteManager1", &HostSettings::remoteManager1},
    {L"RemoteManager1Enable", &HostSettings::remoteManager1Enable},
    {L"RemoteManager2", &HostSettings::remoteManager2},
    {L"RemoteManager2Enable", &HostSettings::remoteManager2Enable},
    {L"MonitoringURL", &HostSettings::monitoringUrl},
    {L"MonitoringURLEnable", &HostSettings::monitoringUrlEnable},
    {L"MonitoringIPEnable", &HostSettings::monitoringIpEnable},
};

// The machine's power consumption profile. Powers are watts as text with two decimals.
struct PowerConsumptionData {
    FieldText manualSetFlag, monitorType, monitorSize, monitorOnPower, monitorOffPower, cpuMaxPower, cpuIdlePower,
        cpuStandbyPower, cpuOffPower, systemType, processorType, systemManufacturer, systemModel;

    friend bool operator==(const PowerConsumptionData&, const PowerConsumptionData&) = default;
};

inline constexpr Field<PowerConsumptionData> kConsumptionFields[] = {
    {L"ManualSetFlag", &PowerConsumptionData::manualSetFlag},
    {L"MonitorType", &PowerConsumptionData::monitorType},
    {L"MonitorSize", &PowerConsumptionData::monitorSize},
    {L"MonitorONPower", &PowerConsumptionData::monitorOnPower},
    {L"MonitorOFFPower", &PowerConsumptionData::monitorOffPower},
    {L"CPUMaxPower", &PowerConsumptionData::cpuMaxPower},
    {L"CPUIdlePower", &PowerConsumptionData::cpuIdlePower},
    {L"CPUStandbyPower", &PowerConsumptionData::cpuStandbyPower},
    {L"CPUOffPower", &PowerConsumptionData::cpuOffPower},
    {L"System_Type", &PowerConsumptionData::systemType},
    {L"Processor_Type", &PowerConsumptionData::processorType},
    {L"System_Manufacturer", &PowerConsumptionData::systemManufacturer},
    {L"System_Model", &PowerConsumptionData::systemModel},
};

// Device restrictions: "YES" (disabled), "NO" (enabled) or "NA" (not controllable on this machine).
struct DeviceSettings {
    FieldText fireWall, usbStorage, cdDvdRom, blueTooth, wifi, webCam, registryEdit, biosSettingsPassword, biosPassword,
        wakeOnLan;

    friend bool operator==(const DeviceSettings&, const DeviceSettings&) = default;
};

inline constexpr Field<DeviceSettings> kDeviceFields[] = {
    {L"FireWall", &DeviceSettings::fireWall},
    {L"UsbStorage", &DeviceSettings::usbStorage},
    {L"CDDVDRom", &DeviceSettings::cdDvdRom},
    {L"BlueTooth", &DeviceSettings::blueTooth},
    {L"WIFI", &DeviceSettings::wifi},
    {L"WebCam", &DeviceSettings::webCam},
    {L"RegistryEdit", &DeviceSettings::registryEdit},
    {L"BiosSettingsPassword", &DeviceSettings::biosSettingsPassword},
    {L"BiosPassWord", &DeviceSettings::biosPassword},
    {L"WLAN", &DeviceSettings::wakeOnLan},
};

// The record types by table, for code that serves any record.
template <class Record>
struct FieldsOf;
template <>
struct FieldsOf<PowerSchemeSettings> {
    static constexpr std::span kTable{kPowerSchemeFields};
};
template <>
struct FieldsOf<ApplicationRule> {
    static constexpr std::span kTable{kApplicationRuleFields};
};
template <>
struct FieldsOf<SnoozeSettings> {
    static constexpr std::span kTable{kSnoozeFields};
};
template <>
struct FieldsOf<ProxySettings> {
    static constexpr std::span kTable{kProxyFields};
};
template <>
struct FieldsOf<HostSettings> {
    static constexpr std::span kTable{kHostFields};
};
template <>
struct FieldsOf<PowerConsumptionData> {
    static constexpr std::span kTable{kConsumptionFields};
};
template <>
struct FieldsOf<DeviceSettings> {
    static constexpr std::span kTable{kDeviceFields};
};

// An element of that name holding the record's elements in the table's order.
template <class Record>
[[nodiscard]] Element ElementOf(std::wstring_view name, const Record& record)
{
    Element element{std::wstring(name), {}, {}};
    element.children.reserve(FieldsOf<Record>::kTable.size());
    for (const auto& field : FieldsOf<Record>::kTable)
        element.children.push_back(TextElement(field.element, record.*field.slot));
    return element;
}

// The record whose fields take the texts of the elements by position. Missing ones stay empty, further ones are
// dropped.
template <class Record>
[[nodiscard]] Record RecordOf(std::span<const Element> elements)
{
    Record record;
    const auto table = FieldsOf<Record>::kTable;
    for (std::size_t i = 0; i < std::min(table.size(), elements.size()); ++i)
        record.*table[i].slot = elements[i].text;
    return record;
}

} // namespace voltaro

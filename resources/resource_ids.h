// Numbers of the program's resources. Plain macros: the resource compiler reads this file too.
#pragma once

// icons
#define IDI_RUNNING 1001 // program and tray, power management active
#define IDI_PAUSED 1002  // tray, power management paused

// class menus and their commands
#define IDM_SYSTEM_INFO 1004           // system information
#define IDM_ACCESS_CONTROL 1006        // communication ports
#define IDM_BATTERY 1008               // battery information
#define IDM_RULE 1019                  // application control settings
#define IDM_PROXY 1021                 // proxy settings
#define ID_SYSTEM_INFO_REFRESH 9015    // "&Refresh"
#define ID_SYSTEM_INFO_HELP 9016       // "&Help"
#define ID_ACCESS_CONTROL_HELP 3050    // "&Help"
#define ID_ACCESS_CONTROL_REFRESH 3051 // "&Refresh"
#define ID_BATTERY_REFRESH 3056        // "&Refresh"
#define ID_RULE_CLEAR 3058             // "&Clear"
#define ID_PROXY_HELP 4050             // "&Help"
#define ID_PROXY_REFRESH 4051          // "&Refresh"

// dialogs
#define IDD_ABOUT 2002 // about box

// Bitmaps, width x height. RGB(236, 233, 216) is the ground of all but the opaque ones: copy them with that key. Soft
// edges are blended with RGB(240, 240, 240).
#define IDB_EMBLEM 1010         // 65 x 65
#define IDB_WORDMARK 1011       // 69 x 20
#define IDB_WORDMARK_LARGE 1012 // 155 x 48, "TM" is drawn beside it
#define IDB_MACHINE_ON 1025     // 75 x 75
#define IDB_MACHINE_OFF 1026    // 75 x 75, any state but "On"
#define IDB_SYSTEM_PANES 1035   // 80 x 38, operating-system family
#define IDB_SYSTEM_RING 1036    // 80 x 25, operating-system family
#define IDB_BANNER 1059         // 510 x 100, foot of the main window; calm where two lines of text stand
#define IDB_SYSTEM_PROMPT 1074  // 80 x 25, opaque, operating-system family

// quick-action buttons, 33 x 33, opaque: white on green tiles that suit any button face
#define IDB_ACTION_STANDBY 1101     // moon
#define IDB_ACTION_HIBERNATE 1102   // snow flake
#define IDB_ACTION_SHUTDOWN 1103    // power sign
#define IDB_ACTION_RESTART 1104     // turning arrow
#define IDB_ACTION_LOG_OFF 1105     // arrow out of a door
#define IDB_ACTION_LOCK_SCREEN 1106 // padlock
#define IDB_RESUME 1107             // 85 x 16, opaque, face of the "Resume" button

// status area, 32 x 32
#define IDB_SOURCE_AC 1110           // power source "On AC"
#define IDB_SOURCE_BATTERY 1111      // power source "On Battery"
#define IDB_BATTERY_NONE 1112        // "No System battery"
#define IDB_BATTERY_CHARGING 1113    // "Charging"
#define IDB_BATTERY_DISCHARGING 1114 // any other status of a battery in use
#define IDB_BATTERY_UNKNOWN 1115     // "Unknown status"

// license state, 125 x 16
#define IDB_LICENSE_ACTIVE 1120   // "Activated"
#define IDB_LICENSE_INACTIVE 1121 // "Not Activated"
#define IDB_LICENSE_EXPIRED 1122  // "License Expired"

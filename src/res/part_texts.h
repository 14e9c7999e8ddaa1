// The numbers of what screen readers say, in reach.rc.
#pragma once

#define IDS_PART_TITLE 8000
#define IDS_PART_TEXT 8001
#define IDS_PART_PICTURE 8002
#define IDS_PART_EDIT 8003
#define IDS_PART_OPEN 8004
#define IDS_PART_PRESS 8005
#define IDS_PART_SHOW_OR_HIDE 8006
#define IDS_PART_UNTITLED 8007
#define IDS_PART_DISMISS 8008
#define IDS_PART_SNOOZE 8009
#define IDS_PART_STATE 8010   // in the order of `SkinState`
#define IDS_PART_MEMBER 8060  // in the order of `MemberState`
#define IDS_PART_WAITS 8070
#define IDS_PART_SNOOZE_FOR 8071

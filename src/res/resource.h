// Numbers of the program's resources. A translation ("language80.dll") uses the same ones.
#pragma once

#define IDI_JOTLETS 1
#define IDI_JOTLETS_BLANK 2
#define IDI_JOTLETS_HIDDEN 3

#define IDR_DEFAULT_RTF 10

#define IDM_TRAY 100
#define IDM_JOTLET 101
#define IDA_MAIN 110
#define IDD_ORPHANS 120

// Commands of the program, in the order of the tray menu.
#define ID_NEW_JOTLET 1000
#define ID_NEW_FROM_CLIPBOARD 1001
#define ID_IMPORT 1002
#define ID_RESCUE 1003
#define ID_MANAGE 1004
#define ID_FRIENDS 1005
#define ID_OPTIONS 1006
#define ID_MOVE_DATA 1007
#define ID_BACKUP 1008
#define ID_RESTORE 1009
#define ID_HELP_JOTLETS 1010
#define ID_SHOW_OR_HIDE 1011
#define ID_EXIT_JOTLETS 1012

// Commands of one note.
#define ID_JOTLET_CLOSE 1100
#define ID_JOTLET_DELETE 1101

#define IDC_ORPHAN_LIST 1200

#define IDS_USAGE 2000
#define IDS_NO_RICH_EDIT 2001
#define IDS_NEWER_VERSION 2002
#define IDS_SAVE_FAILED 2003
#define IDS_SAVE_FAILED_AT_EXIT 2004
#define IDS_WELCOME_TITLE 2005
#define IDS_WELCOME_TEXT 2006
#define IDS_HIDE_ALL 2007
#define IDS_SHOW_ALL 2008
#define IDS_DAMAGED_KEPT 2009
#define IDS_DAMAGED_NOT_KEPT 2010
#define IDS_DAMAGED_INSTEAD 2011
#define IDS_MOVE_CHOOSE 2012
#define IDS_MOVE_FAILED 2013
#define IDS_APP_TITLE 2014
#define IDS_TOOLTIP 2015
#define IDS_CONFIRM_DELETE 2016

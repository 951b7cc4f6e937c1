#pragma once
// The window styles that the resource script uses and that a face reads back, under their customary names.
// A stock resource compiler knows the statements of a script but not these numbers.

#ifndef WS_POPUP
#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_VISIBLE 0x10000000
#define WS_DISABLED 0x08000000
#define WS_CAPTION 0x00C00000
#define WS_SYSMENU 0x00080000
#define WS_GROUP 0x00020000
#define WS_TABSTOP 0x00010000
#define WS_VSCROLL 0x00200000
#define WS_BORDER 0x00800000
#define WS_THICKFRAME 0x00040000
#define WS_EX_CONTROLPARENT 0x00010000
#define WS_EX_CLIENTEDGE 0x00000200
#endif

#ifndef DS_SETFONT
#define DS_SETFONT 0x40
#define DS_SHELLFONT 0x48
#define DS_MODALFRAME 0x80
#define DS_CENTER 0x0800
#define DS_CONTROL 0x0400
#endif

#ifndef BS_PUSHBUTTON
#define BS_PUSHBUTTON 0x0
#define BS_DEFPUSHBUTTON 0x1
#define BS_AUTOCHECKBOX 0x3
#define BS_GROUPBOX 0x7
#define BS_AUTORADIOBUTTON 0x9
#define BS_TYPEMASK 0xF
#endif

#ifndef ES_AUTOHSCROLL
#define ES_AUTOHSCROLL 0x0080
#define ES_READONLY 0x0800
#define ES_MULTILINE 0x0004
#define ES_AUTOVSCROLL 0x0040
#define ES_WANTRETURN 0x1000
#endif

#ifndef CBS_DROPDOWNLIST
#define CBS_DROPDOWN 0x2
#define CBS_DROPDOWNLIST 0x3
#define CBS_OWNERDRAWFIXED 0x10
#define CBS_SORT 0x100
#define CBS_HASSTRINGS 0x200
#endif
#define CBS_TYPEMASK 0x3

#ifndef LBS_NOTIFY
#define LBS_NOTIFY 0x1
#define LBS_SORT 0x2
#endif

#ifndef LVS_REPORT
#define LVS_REPORT 0x1
#define LVS_TYPEMASK 0x3
#define LVS_SINGLESEL 0x4
#define LVS_SHOWSELALWAYS 0x8
#define LVS_NOSORTHEADER 0x8000
#endif

#pragma once

// Numbers of resources and commands; also read by the resource compiler.

#define IDR_MAIN 1
#define IDD_ADD_INS 2

#define IDM_OPEN 101
#define IDM_SAVE 102
#define IDM_EXIT 103
#define IDM_CODE 111
#define IDM_OBJECT 112
#define IDM_TREE 113
#define IDM_ADD_INS 121
#define IDM_CASCADE 131
#define IDM_TILE_HORIZONTALLY 132
#define IDM_TILE_VERTICALLY 133
#define IDM_ARRANGE 134
#define IDM_ABOUT 141

// The commands that add-ins have put on the menu are numbered from here, the windows from there.
#define IDM_FIRST_COMMAND 1000
#define IDM_FIRST_WINDOW 5000

#define IDC_ADD_INS 201
#define IDC_DESCRIPTION 202
#define IDC_LOADED 203
#define IDC_STARTUP 204

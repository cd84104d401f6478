#pragma once

// Resources
#define IDR_MENU 100
#define IDR_KEYS 101
#define IDR_TIME_KEYS 102
#define IDI_KELVANE 103
#define IDR_BESIDE_MANIFEST 104

// Dialogs
#define IDD_PATH 120
#define IDD_ADDRESS 121
#define IDD_PICTURE_SIZE 122
#define IDD_ABOUT 123

// Commands
#define ID_OPEN 200
#define ID_OPEN_ADDRESS 201
#define ID_SAVE_PICTURE 202
#define ID_PRINT 203
#define ID_EXIT 204
#define ID_COPY 205
#define ID_PATH 206
#define ID_VIEW_SECTION 207
#define ID_VIEW_PROFILE 208
#define ID_OPTIONS 209
#define ID_USE_KEY 210
#define ID_LOAD_KEY 211
#define ID_MAKE_KEY 212
#define ID_DRAW 213
#define ID_PLAY 214
#define ID_PREVIOUS 215
#define ID_NEXT 216
#define ID_FIRST 217
#define ID_LAST 218
#define ID_ABOUT 219
#define ID_NO_RECENT 220
#define ID_FIRST_RECENT 240

// Controls of the main window
#define IDC_ITEM_LABEL 300
#define IDC_ITEM 301
#define IDC_STEP_LABEL 302
#define IDC_STEP 303
#define IDC_STEP_COUNT 304
#define IDC_SPEED_LABEL 305
#define IDC_SPEED 306
#define IDC_MESSAGE 307
#define IDC_STATUS 308
#define IDC_STAGE 309

// Controls of the dialogs
#define IDC_POINTS 400
#define IDC_LONGITUDE 401
#define IDC_LATITUDE 402
#define IDC_ADD 403
#define IDC_REMOVE 404
#define IDC_UP 405
#define IDC_DOWN 406
#define IDC_PASTE 407
#define IDC_LOAD 408
#define IDC_SAVE 409
#define IDC_PROBLEM 410
#define IDC_ADDRESS 420
#define IDC_WIDTH 430
#define IDC_HEIGHT 431
#define IDC_ABOUT_NAME 440
#define IDC_ABOUT_TEXT 441

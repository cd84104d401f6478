#pragma once

// Numbers of the dialogs and of their controls: macros, because the resource compiler reads them.

#define IDD_FRMOPTIONS 100
#define IDC_OPTVIEWSTYLE0 110 /* the group's four buttons, one after the other */
#define IDC_OPTVIEWSTYLE1 111
#define IDC_OPTVIEWSTYLE2 112
#define IDC_OPTVIEWSTYLE3 113
#define IDC_CMDEDITLEGEND 114

#define IDD_FRMVARNAME 120
#define IDC_LSTVARNAMES 121

#define IDD_FRMAUTODIV 130
#define IDC_FLDMINVAL 131
#define IDC_FLDMAXVAL 132
#define IDC_FLDDIVISIONS 133

#define IDD_FRMCOLORRAMP 140
#define IDC_LBLFIRSTCOLOR 141
#define IDC_LBLLASTCOLOR 142

#define IDD_FRMCOLORKEY 150
#define IDC_ROWFRAME 151
#define IDC_HEADNUMBER 152
#define IDC_HEADLOW 153
#define IDC_HEADHIGH 154
#define IDC_HEADCOLOR 155
#define IDC_HEADDELETE 156
#define IDC_VSCROLL1 157
#define IDC_CMDADD 158
#define IDC_CMDAUTODIV 159
#define IDC_CMDCOLORRAMP 160
#define IDC_CMDIMPORT 161

/* What is wrong, in every dialog that has something to say of it. */
#define IDC_PROBLEM 170

/* The editor's rows in view, counted from 0 at the top: the control of a part of row r is
   IDC_FIRSTROW + r * ROW_PARTS + the part. */
#define IDC_FIRSTROW 1000
#define ROW_PARTS 8
#define ROW_NUMBER 0
#define ROW_LOWLABEL 1
#define ROW_FLDLOWRANGE 2
#define ROW_HIGHLABEL 3
#define ROW_FLDHIGHRANGE 4
#define ROW_LBLCOLOR 5
#define ROW_CMDDELETE 6

// What form designers and object browsers show of the control, written for the programmer in front
// of one. Hosts keep no more than 255 characters. The compiler of the interface description joins no
// adjacent texts, hence the lines that go on at the left margin.

#define HELP_SHOW_OPTIONS "Opens the options dialog (section or profiles, contour lines, colour \
key) and waits for its end. OK draws again from the values already read."
#define HELP_NC_FILE "Opens a data set: a netCDF file or an OPeNDAP address. Result: 1, or -1 \
with the reason in ErrorMessage. Selects variable 1 and time step 1; path and colour key stay."
#define HELP_KEW_FILE "Loads the colour key of the shown variable from a KEW file. Result: 1, or \
-1 when the file has none or cannot be read. Does not turn UseColorKey on, draws nothing."
#define HELP_NEW_SECTION "Empties the list of path points. The section built before stays until \
the next EndSection."
#define HELP_ADD_SECTION "Adds a point to the path: X is its longitude, y its latitude, both in \
degrees, longitudes as the data set counts them. Any number is taken; EndSection tells what is \
wrong."
#define HELP_ADD_COLOR_KEY "Adds a division to the colour key: values from vLow to vHig, in the \
variable's unit, get the colour col (as RGB gives it). Nothing is checked or sorted; draws \
nothing."
#define HELP_NEW_COLOR_KEY "Empties the colour key. UseColorKey stays as it is."
#define HELP_END_SECTION "Builds the section: the grid cells along the path. Result: 1, or -1 \
with the reason in ErrorMessage. Draws nothing; call Draw."
#define HELP_SET_VAR_BY_NAME "Chooses the variable to draw by its name, capitals or not. Result: \
1, or -1 with the reason in ErrorMessage. Draws nothing; call Draw."
#define HELP_SET_VAR_BY_ORDER "Chooses the variable to draw by its place in the list, 1 to \
NumDrawAbleItems. Result: 1, or -1 for any other number, without a text in ErrorMessage. Draws \
nothing; call Draw."
#define HELP_ERROR_MESSAGE "The reason of the last failure, empty before the first. A success \
does not clear it, so look here only after a failure."
#define HELP_NUM_DRAW_ABLE_ITEMS "The number of variables of the data set that can be drawn; 0 \
before the first NcFile."
#define HELP_ITEM_NAME "The name of variable nOrder, 1 to NumDrawAbleItems. Empty for any other \
number."
#define HELP_DRAW_PROFILE "True: Draw shows profiles, the values against depth at each point of \
the path. Setting it to False means the vertical section. Setting draws nothing; call ReDraw."
#define HELP_DRAW_VERTICAL_SECTION "True: Draw shows the vertical section, distance along the \
path against depth. Setting it to False means profiles. Setting draws nothing; call ReDraw."
#define HELP_DRAW "Reads the shown variable along the path at the current time step, and draws. \
Result: Empty. Raises no error: what went wrong is in ErrorMessage."
#define HELP_SET_CURRENT_TIME "Goes to time step lTime, counted from 1, reads and draws. The \
upper limit is not checked: the reading fails there. Below 1 nothing is read or drawn."
#define HELP_ADVANCE_TIME "Goes nt time steps on, back when negative; reads and draws. Result: \
the new time step, counted from 1. Past the last step comes step 1; below 1 nothing is read. \
Error 6: overflow."
#define HELP_RE_DRAW "Draws again from the values already read, for instance in another view or \
in other colours. Result: Empty."
#define HELP_USE_COLOR_KEY "True: colours come from the colour key. False: from the built-in \
ramp. Setting it to True without a key leaves it False. Setting draws nothing; call ReDraw."
#define HELP_INIT_COLOR_KEY "Takes the colour key from the data set's own KEW file; without that \
file, makes ten divisions in random colours and saves them there. Turns UseColorKey on, draws \
nothing."
#define HELP_CONTROL "Draws vertical sections and profiles of gridded ocean and atmosphere data \
in netCDF data sets"

* The section with GrADS, one picture a time step.
*   grads -blcx "run section.gs FILE VARIABLE WEST SOUTH EAST NORTH POINTS STEPS LEVELS PICTURE"
function main(given)
  file = subwrd(given, 1)
  name = subwrd(given, 2)
  west = subwrd(given, 3)
  south = subwrd(given, 4)
  east = subwrd(given, 5)
  north = subwrd(given, 6)
  points = subwrd(given, 7)
  steps = subwrd(given, 8)
  levels = subwrd(given, 9)
  picture = subwrd(given, 10)
  'sdfopen 'file
  'set grads off'
  'set display color white'
  'set gxout grfill'
  step = 1
  while (step <= steps)
    'clear'
    'collect 1 free'
    'set t 'step
    'set z 1 'levels
    n = 0
    while (n < points)
      lon = west + (east - west) * n / (points - 1)
      lat = south + (north - south) * n / (points - 1)
      'set lon 'lon
      'set lat 'lat
      'collect 1 gr2stn('name', 'lon', 'lat')'
      n = n + 1
    endwhile
    'set x 1 'points
    'set y 1'
    'set z 1 'levels
    'd coll2gr(1,-u)'
    'draw title 'name' step 'step
    'printim 'picture'-'math_format('%02.0f', step)'.png x1000 y600'
    step = step + 1
  endwhile
  'quit'

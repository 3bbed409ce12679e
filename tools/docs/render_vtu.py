# Renders a .vtu file written by orxsrv check --vtu to a PNG, coloured by material:
#   xvfb-run -a pvpython tools/docs/render_vtu.py mesh.vtu picture.png
from paraview.simple import *
import sys
reader = XMLUnstructuredGridReader(FileName=[sys.argv[1]])
view = GetActiveViewOrCreate('RenderView')
view.ViewSize = [900, 600]
view.Background = [1, 1, 1]
try:
    view.UseColorPaletteForBackground = 0
except Exception:
    pass
display = Show(reader, view)
ColorBy(display, ('CELLS', 'material'))
display.RescaleTransferFunctionToDataRange(True)
display.SetRepresentationType('Surface With Edges')
display.SetScalarBarVisibility(view, True)
view.CameraPosition = [6, -5, 5]
view.CameraFocalPoint = [1, 0.5, 1.2]
view.CameraViewUp = [0, 0, 1]
view.OrientationAxesVisibility = 1
Render(view)
SaveScreenshot(sys.argv[2], view, ImageResolution=[900, 600])

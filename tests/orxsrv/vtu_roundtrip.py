"""Writes the mesh of an example deck with orxsrv and reads it back with meshio: the counts of
points and cells and the labels must be those of the deck. Exits 77 (skipped) without meshio."""
import json
import subprocess
import sys
import tempfile

try:
    import meshio
except ImportError:
    sys.exit(77)

orxsrv, deck = sys.argv[1], sys.argv[2]
with tempfile.TemporaryDirectory() as work:
    vtu = work + "/mesh.vtu"
    run = subprocess.run([orxsrv, "check", deck, "--json", "--quiet", "--vtu", vtu], capture_output=True, text=True)
    assert run.returncode in (0, 1), run.stderr
    facts = json.loads(run.stdout)
    mesh = meshio.read(vtu)

labels = sorted(int(label) for block in mesh.cell_data["element_label"] for label in block)
assert len(mesh.points) == facts["nodes"], (len(mesh.points), facts["nodes"])
assert len(labels) == facts["elements"], (len(labels), facts["elements"])
assert len(set(labels)) == len(labels)
assert sorted(mesh.point_data["node_label"]) == sorted(set(mesh.point_data["node_label"]))
for name in ("element_type", "section", "material", "finding"):
    assert sum(len(block) for block in mesh.cell_data[name]) == len(labels), name
print("points", len(mesh.points), "cells", len(labels), "ok")

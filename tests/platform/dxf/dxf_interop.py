"""Interop helper for the DXF file tests: another DXF library's view of files.

  dxf_interop.py audit PATH      load PATH; exit 0 when its audit reports no error, else print them
  dxf_interop.py summary PATH    print one line per block: name, entity count, sorted entity handles
  dxf_interop.py create FOLDER   write drawings in several versions and both forms into FOLDER and
                                 print their paths
"""
import sys

import ezdxf


def audit(path):
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    for error in auditor.errors:
        print(f"{error.code}: {error.message}")
    return 1 if auditor.errors else 0


def summary(path):
    doc = ezdxf.readfile(path)
    for block in doc.blocks:
        handles = sorted(e.dxf.handle for e in block)
        print(block.name, len(handles), " ".join(handles))
    return 0


def fill(doc):
    block = doc.blocks.new(name="PART")
    block.add_line((0, 0), (10, 0), dxfattribs={"layer": "EDGES"})
    block.add_circle((5, 5), 2)
    block.add_attdef("TAG", (0, -2), dxfattribs={"height": 1.0})
    msp = doc.modelspace()
    for i in range(3):
        ref = msp.add_blockref("PART", (20 * i, 0))
        ref.add_attrib("TAG", f"value {i}", (20 * i, -2))
    msp.add_lwpolyline([(0, 0), (5, 0), (5, 5)], dxfattribs={"closed": True}) \
        if doc.dxfversion > "AC1009" else msp.add_polyline2d([(0, 0), (5, 0), (5, 5)])
    msp.add_text("label", dxfattribs={"height": 2.5})
    if doc.dxfversion > "AC1009":
        hatch = msp.add_hatch(color=3)
        hatch.paths.add_polyline_path([(0, 0), (4, 0), (4, 4), (0, 4)], is_closed=True)
        msp.add_spline([(0, 0), (3, 4), (6, 0), (9, 4)])
        msp.add_mtext("first line\\Psecond line", dxfattribs={"char_height": 1.5})


def create(folder):
    for version in ("R12", "R2000", "R2010", "R2018"):
        doc = ezdxf.new(version)
        fill(doc)
        for form in ("asc", "bin"):
            path = f"{folder}/ezdxf_{version}_{form}.dxf"
            doc.saveas(path, fmt=form)
            print(path)
    return 0


if __name__ == "__main__":
    command, argument = sys.argv[1], sys.argv[2]
    sys.exit({"audit": audit, "summary": summary, "create": create}[command](argument))

#!/usr/bin/env python3
"""Computes the starter set of matrices offline: for each line "V K T M" of parametri.txt a greedy
covering (dorvanta-cli matrix cover), checked exactly (dorvanta-cli matrix verify), written as
txt/<NAME>.txt, and elenco.cmake listing each with the share of subsets it covers. The build only
seals the text sources (matrici.cmake); run this again after changing parametri.txt:

    matrix/starter/genera.py build/release/dorvanta-cli
"""
import json
import pathlib
import subprocess
import sys

here = pathlib.Path(__file__).resolve().parent
cli = sys.argv[1] if len(sys.argv) > 1 else "build/dev/dorvanta-cli"
rows = []
for line in (here / "parametri.txt").read_text().splitlines():
    if not line.strip() or line.startswith("#"):
        continue
    v, k, t, m = (int(x) for x in line.split())
    name = f"V{v:02d}K{k:02d}T{t}M{m}"
    txt = here / "txt" / f"{name}.txt"
    subprocess.run([cli, "matrix", "cover", "--v", str(v), "--k", str(k), "--t", str(t), "--m", str(m),
                    "--seed", str(v * 1000 + k * 100 + t * 10 + m), "-o", str(txt)], check=True,
                   stdout=subprocess.DEVNULL)
    sealed = here / "txt" / f"{name}.mqvn"
    subprocess.run([cli, "matrix", "seal", str(txt), "-o", str(sealed), "--t", str(t), "--m", str(m)], check=True,
                   stdout=subprocess.DEVNULL)
    out = subprocess.run([cli, "matrix", "verify", str(sealed), "--drawn", str(m), "--hits", str(t), "--json"],
                         check=True, capture_output=True, text=True).stdout
    sealed.unlink()
    r = json.loads(out)
    cover = 100.0 * r["covered"] / r["subsets"]
    cols = sum(1 for l in txt.read_text().splitlines() if l.strip())
    print(f"{name}: {cols} columns, {cover:.2f}% of {r['subsets']} subsets")
    rows.append(f"dv_matrice({name} {v} {k} {t} {m} {cover:g})")
(here / "elenco.cmake").write_text(
    "# Written by genera.py: name, V, K, T, M and the checked percentage of M-subsets covered.\n"
    + "\n".join(rows) + "\n")

"""Bundles the built libKelmora.so and the format families with the package.

The library comes from the build folder that KELMORA_BUILD_DIR names
(build/default by default, relative to the repository root); build it first
with `cmake --preset default && cmake --build --preset default --target
kelmora_shared`.
"""

import os
import shutil
from pathlib import Path

from setuptools import setup
from setuptools.command.build_py import build_py
from setuptools.dist import Distribution

REPOSITORY = Path(__file__).resolve().parent.parent


class BuildWithLibrary(build_py):
    def run(self) -> None:
        super().run()
        build_dir = Path(os.environ.get("KELMORA_BUILD_DIR", "build/default"))
        if not build_dir.is_absolute():
            build_dir = REPOSITORY / build_dir
        library = build_dir / "automation" / "libKelmora.so"
        if not library.exists():
            raise SystemExit(f"{library} is missing: build the library first "
                             "(cmake --build --preset default --target kelmora_shared) "
                             "or set KELMORA_BUILD_DIR to the build folder that has it")
        target = Path(self.build_lib) / "kelmora"
        shutil.copy2(library, target / "libKelmora.so")
        formats = target / "formats"
        formats.mkdir(parents=True, exist_ok=True)
        for family in sorted((REPOSITORY / "examples" / "formats").glob("family-*.json")):
            shutil.copy2(family, formats / family.name)


class BinaryDistribution(Distribution):
    """The wheel carries a native library, so it is tagged for this
    platform."""

    def has_ext_modules(self) -> bool:
        return True


setup(cmdclass={"build_py": BuildWithLibrary}, distclass=BinaryDistribution)

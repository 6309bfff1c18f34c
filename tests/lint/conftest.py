# SPDX-License-Identifier: MIT
import subprocess

import pytest


@pytest.fixture
def sample(tmp_path):
    """Makes a small source tree from paths and texts."""
    def make(texts):
        subprocess.run(["git", "init", "-q"], cwd=tmp_path, check=True)
        for path, text in texts.items():
            (tmp_path / path).parent.mkdir(parents=True, exist_ok=True)
            (tmp_path / path).write_text(text, encoding="utf-8")
        return tmp_path
    return make

"""scripts/release in a repository made up for it."""
import os
import shutil
import subprocess
import tarfile
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "release"
AUTHOR = {f"GIT_{who}_{what}": f"nobody{'@example.invalid' if what == 'EMAIL' else ''}"
          for who in ("AUTHOR", "COMMITTER") for what in ("NAME", "EMAIL")}


class ReleaseTest(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.top = Path(place.name)
        self.write("CMakeLists.txt", "project(Slantwise VERSION 3.4.5 LANGUAGES C CXX)\n")
        self.write("debian/changelog", "slantwise (3.4.5) unstable; urgency=medium\n")
        self.write(".gitignore", "build/\n")
        (self.top / "scripts").mkdir()
        shutil.copy(SCRIPT, self.top / "scripts/release")
        self.git("init", "-q")
        self.commit()

    def write(self, name, text):
        (self.top / name).parent.mkdir(parents=True, exist_ok=True)
        (self.top / name).write_text(text)

    def git(self, *arguments):
        environment = {key: value for key, value in os.environ.items() if not key.startswith("GIT_")} | AUTHOR
        return subprocess.run(["git", *arguments], cwd=self.top, env=environment, check=True, text=True,
                              stdout=subprocess.PIPE).stdout

    def commit(self):
        self.git("add", "-A")
        self.git("commit", "-q", "-m", "all")

    def release(self, *arguments):
        return subprocess.run([self.top / "scripts/release", *arguments], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def archive(self):
        result = self.release()
        self.assertEqual(result.returncode, 0, result.stdout)
        return Path(result.stdout.strip())

    def test_the_archive_is_named_for_the_version_and_has_what_is_committed(self):
        archive = self.archive()
        self.assertEqual(archive.name, "slantwise-3.4.5.tar.gz")
        with tarfile.open(archive) as tar:
            names = {member.name for member in tar.getmembers() if member.isfile()}
        self.assertEqual(names, {f"slantwise-3.4.5/{name}" for name in self.git("ls-files").split()})

    def test_the_same_commit_gives_the_same_bytes(self):
        archive = self.archive()
        first = archive.read_bytes()
        archive.unlink()
        os.utime(self.top / "CMakeLists.txt", (1, 1))
        self.assertEqual(self.archive().read_bytes(), first)

    def test_refuses_what_is_not_committed(self):
        self.write("CMakeLists.txt", "project(Slantwise VERSION 3.4.5 LANGUAGES CXX)\n")
        result = self.release()
        self.assertEqual((result.returncode, result.stdout), (1, "release: there are changes that are not committed\n"))

    def test_refuses_a_version_that_the_packages_do_not_have(self):
        self.write("CMakeLists.txt", "project(Slantwise VERSION 3.5.0 LANGUAGES C CXX)\n")
        self.commit()
        result = self.release()
        self.assertEqual((result.returncode, result.stdout),
                         (1, "release: debian/changelog is of 3.4.5, CMakeLists.txt of 3.5.0\n"))

    def test_refuses_arguments_it_does_not_know(self):
        self.assertEqual(self.release("--chek").returncode, 2)


if __name__ == "__main__":
    unittest.main()

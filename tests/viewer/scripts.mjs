// node scripts.mjs FAULT_DRIVER: the program saves in a copy of the demonstration, and what it writes runs as
// scripts, as in the viewer's browser, to the arrays that are meant.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import vm from 'node:vm';

const driver = path.resolve(process.argv[2]);
const demo = path.join(path.dirname(fileURLToPath(import.meta.url)), '../../demo');
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'scripts-'));
fs.cpSync(path.join(demo, 'spartiti'), path.join(folder, 'spartiti'), { recursive: true });
fs.cpSync(path.join(demo, 'other-stand'), path.join(folder, 'other'), { recursive: true });

function evaluated(name, where = folder) {
    const bytes = fs.readFileSync(path.join(where, 'spartiti', `${name}.js`));
    const context = vm.createContext({});
    vm.runInContext(new TextDecoder('windows-1252').decode(bytes), context);
    return Array.from(context[name]);
}

function run(operation) {
    execFileSync(driver, [folder, operation]);
}

try {
    const archive = evaluated('archivio');
    archive[1] = 'Changed';
    archive.push(String(archive.length / 5 + 1), '', '', '', '0');
    run('save-archive');
    assert.deepEqual(evaluated('archivio'), archive);

    const others = evaluated('archivio', path.join(folder, 'other')).slice(0, 10);
    const next = archive.length / 5 + 1;
    run('absorb');
    others[0] = String(next);
    others[5] = String(next + 1);
    assert.deepEqual(evaluated('archivio'), archive.concat(others));

    const playlists = evaluated('playlist');
    run('save-playlist');
    assert.deepEqual(evaluated('playlist'), playlists.concat('Playlist 1', '3,2,1,#'));

    const midi = evaluated('midi');
    assert.equal(midi[0], '1');
    midi.splice(1, 16, ...Array(16).fill(',,127'));
    run('save-midi');
    assert.deepEqual(evaluated('midi'), midi);
} finally {
    fs.rmSync(folder, { recursive: true });
}

// Runs editor/suite.js in VS Code, which a package brings that serves it to browsers.
import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import { once } from "node:events";
import { existsSync, mkdtempSync, readFileSync, rmSync } from "node:fs";
import { mkdir, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { fileURLToPath, pathToFileURL } from "node:url";

const extension = fileURLToPath(new URL("..", import.meta.url));
const checkout = path.join(extension, "../..");
const installed = path.join(checkout, "build/vscode");
const product = path.join(installed, "node_modules/code-server/lib/vscode");
const npm = (folder, ...packages) =>
  execFileSync("npm", ["install", "--ignore-scripts", "--omit=dev", "--omit=optional", "--loglevel=error", ...packages], { cwd: folder, stdio: "inherit" });

if (!existsSync(path.join(product, "node_modules"))) {
  await mkdir(installed, { recursive: true });
  npm(installed, "--no-save", "--prefix=.", "code-server@4.100.3", "playwright-core@1.56.1");
  npm(product);
}
execFileSync(path.join(checkout, "script/setup/packages"), ["chromium"]);
const { chromium } = await import(pathToFileURL(path.join(installed, "node_modules/playwright-core/index.mjs")));

const place = mkdtempSync(path.join(tmpdir(), "zorvel-editor-"));
const workspace = path.join(place, "workspace");
const files = {
  // Told to by a file "hold", it keeps what it found until the file "held" is gone.
  "vendor/bin/zorvel": `#!/bin/sh
    echo "$*" >> runs
    found=$('${checkout}/script/zorvel' "$@"); status=$?
    mv hold held 2>/dev/null && while [ -e held ]; do sleep .05; done
    echo "$found"; exit $status
  `,
  "sample.json": '{"name": "Ann"}',
  "templates/pages/page.tpl": '<p title="\u{1F600}é">{user::}</p>\n{include no.tpl}{include parts/part.tpl}\n{rawurlencode\n a',
  "templates/parts/part.tpl": "",
  "templates/first.tpl": "Once\n{include second.tpl}",
  "templates/second.tpl": "{include first.tpl}",
  "templates/named.tpl": "{nmae}",
  "templates/typed.tpl": "",
  "templates/snippets.tpl": "{dynamic rows}\n\n{/dynamic}",
  "templates/file.tpl": "",
};
for (const [name, text] of Object.entries(files)) {
  await mkdir(path.join(workspace, path.dirname(name)), { recursive: true });
  await writeFile(path.join(workspace, name), text, { mode: 0o755 });
}

const server = spawn(
  process.execPath,
  [path.join(product, "out/server-main.js"), "--accept-server-license-terms", "--without-connection-token", "--host=127.0.0.1", "--port=0", `--server-data-dir=${place}`],
  { env: { ...process.env, NODE_OPTIONS: "--experimental-global-webcrypto" } }, // what Node.js has by itself from 20 on
);
const heard = (words) => new Promise((resolve) => server.stdout.on("data", (text) => words.test(text) && resolve(words.exec(text)[1])));
const [listening, ended] = [/agent listening on (\d+)/, /(Extension Host Process exited) with code: 0/].map(heard);

const collectMessages = () => {
  globalThis.told = [];
  const read = ({ target, addedNodes }) =>
    target.matches?.(".notification-list-item-message") && told.push(...[...addedNodes].map((node) => node.textContent));
  new MutationObserver((changes) => changes.forEach(read)).observe(document, { childList: true, subtree: true });
};

const addressAt = (origin) => `http://${origin}/?${new URLSearchParams({
  folder: workspace,
  payload: JSON.stringify([
    ["extensionDevelopmentPath", `vscode-remote://${origin}${extension}`],
    ["extensionTestsPath", `vscode-remote://${origin}${extension}test/editor/suite.js`],
  ]),
})}`;

async function runSuite(browser) {
  const page = await browser.newPage();
  await page.addInitScript(collectMessages);
  await page.goto(addressAt(`127.0.0.1:${await listening}`));
  await page.getByRole("button", { name: "Trust", exact: true }).click({ timeout: 60_000 });
  const isWhole = await Promise.race([ended, sleep(180_000, false, { ref: false })]);
  const told = await page.evaluate(() => told.filter((text) => text.includes("zorvel")));
  const results = readFileSync(path.join(workspace, "results"), "utf8").trim().split("\n").map((line) => JSON.parse(line));
  return { isWhole, told, results };
}

async function clear(browser) {
  await browser.close();
  server.kill();
  await once(server, "exit");
  rmSync(place, { recursive: true });
}

const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--disable-gpu"] });
const { isWhole, told, results } = await runSuite(browser).finally(() => clear(browser));
for (const { name, error } of results) {
  test(name, () => assert.ok(!error, error));
}
test("nothing is left out", () => assert.ok(isWhole));
test("what keeps templates from being checked is told once", () => assert.deepEqual(told, [
  "There is no command /nowhere/zorvel to check templates with: run composer require --dev zorvel/tools, or name it in the setting zorvel.lint.command.",
  'vendor/bin/zorvel could not check a template: zorvel: The "--nope" option does not exist.',
]));

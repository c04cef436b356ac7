"use strict";
// Runs inside VS Code, in its extension host; editor.test.mjs tells what came out.

const assert = require("node:assert/strict");
const { appendFileSync, existsSync, readFileSync, rmSync, writeFileSync } = require("node:fs");
const { setTimeout: sleep } = require("node:timers/promises");
const vscode = require("vscode");

const root = vscode.workspace.workspaceFolders[0].uri;
const uriOf = (name) => vscode.Uri.joinPath(root, name);
const open = (name) => vscode.workspace.openTextDocument(uriOf(name));
const runs = () => readFileSync(uriOf("runs").fsPath, "utf8").trim().split("\n");
const set = (name, value) => vscode.workspace.getConfiguration("zorvel.lint").update(name, value);

const marks = (document) => vscode.languages.getDiagnostics(document.uri)
  .map(({ range, severity, code }) => [code, vscode.DiagnosticSeverity[severity], document.getText(range)]);

const messages = ({ uri }) => vscode.languages.getDiagnostics(uri).map(({ range, message }) => [range.start.line, message]);

async function eventually(read, expected) {
  for (let left = 300; left > 0 && JSON.stringify(read()) !== JSON.stringify(expected); left--) {
    await sleep(100);
  }
  assert.deepEqual(read(), expected);
}

async function save(document, text) {
  const edit = new vscode.WorkspaceEdit();
  edit.replace(document.uri, new vscode.Range(0, 0, document.lineCount, 0), text);
  await vscode.workspace.applyEdit(edit);
  assert.ok(await document.save());
}

const pageMarks = [
  ["broken-tag", "Error", "{user::}"],
  ["missing-include", "Warning", "{include no.tpl}"],
  ["unclosed-tag", "Warning", "{rawurlencode"],
];

const checks = {
  async "nothing runs before the workspace is trusted"() {
    const page = await open("templates/pages/page.tpl");
    assert.ok(!vscode.workspace.isTrusted);
    vscode.commands.executeCommand("workbench.trust.manage");
    await eventually(() => vscode.workspace.isTrusted, true);
    await eventually(() => marks(page), pageMarks);
    assert.equal(runs().length, 1);
  },

  async "findings go when what they name is mended and saved"() {
    const page = await open("templates/pages/page.tpl");
    const text = page.getText();
    await save(page, "{user::name}");
    await eventually(() => marks(page), []);
    await save(page, text);
    await eventually(() => marks(page), pageMarks);
  },

  async "a fault of an included file shows in the page that includes it"() {
    const first = await open("templates/first.tpl");
    await eventually(() => messages(first), [[0, "templates/second.tpl:1: Include block bad parameter 'first.tpl': circle is detected"]]);
  },

  async "of two runs the later counts"() {
    const page = await open("templates/pages/page.tpl");
    const text = page.getText();
    const held = uriOf("held").fsPath;
    writeFileSync(uriOf("hold").fsPath, "");
    await save(page, `${text} `);
    await eventually(() => existsSync(held), true);
    await save(page, "mended");
    await eventually(() => marks(page), []);
    rmSync(held);
    const named = await open("templates/named.tpl");
    await save(named, "{user::}");
    await eventually(() => marks(named).length, 1);
    assert.deepEqual(marks(page), []);
    await save(named, "{nmae}");
    await save(page, text);
    await eventually(() => marks(page), pageMarks);
  },

  async "options are handed on"() {
    const named = await open("templates/named.tpl");
    await set("options", ["--data=sample.json"]);
    await eventually(() => marks(named), [["silent-tag", "Warning", "{nmae}"]]);
    await set("options", undefined);
    await eventually(() => marks(named), []);
  },

  async "documents of other languages have no findings"() {
    const page = await vscode.languages.setTextDocumentLanguage(await open("templates/pages/page.tpl"), "plaintext");
    await eventually(() => marks(page), []);
    await vscode.languages.setTextDocumentLanguage(page, "zorvel");
    await eventually(() => marks(page), pageMarks);
  },

  async "what is switched off has no findings"() {
    const page = await open("templates/pages/page.tpl");
    await set("enabled", false);
    await eventually(() => marks(page), []);
    await set("enabled", undefined);
    await eventually(() => marks(page), pageMarks);
  },

  async "a snippet takes the place of what was typed, with its brace"() {
    const { document } = await vscode.window.showTextDocument(await open("templates/typed.tpl"));
    for (const letter of "{!op") {
      await vscode.commands.executeCommand("type", { text: letter });
    }
    await vscode.commands.executeCommand("editor.action.triggerSuggest");
    await eventually(() => vscode.commands.executeCommand("acceptSelectedSuggestion") && document.getText(), "{!optional path}{/optional}");
  },

  async "snippets are templates without a mistake"() {
    const document = await open("templates/snippets.tpl");
    const editor = await vscode.window.showTextDocument(document);
    const { items } = await vscode.commands.executeCommand("vscode.executeCompletionItemProvider", document.uri, new vscode.Position(0, 0));
    const snippets = items.filter(({ kind }) => kind === vscode.CompletionItemKind.Snippet);
    for (const { insertText } of snippets) {
      await editor.insertSnippet(insertText, document.lineAt(1).range.end);
      await vscode.commands.executeCommand("leaveSnippet");
    }
    const text = document.getText();
    const keywords = ["include", "optional", "!optional", "dynamic", "rdynamic", "addslashes", "htmlentities", "htmlspecialchars", "rawurlencode"];
    assert.deepEqual(keywords.filter((keyword) => !text.includes(`{${keyword} `)), []);
    await save(document, `${text}{user::}`);
    await eventually(() => marks(document), [["broken-tag", "Error", "{user::}"]]);
  },

  async "what cannot be checked has no findings"() {
    const page = await open("templates/pages/page.tpl");
    for (const [name, value] of [["command", ["/nowhere/zorvel"]], ["options", ["--nope"]]]) {
      await set(name, value);
      await eventually(() => marks(page), []);
      await save(page, page.getText());
      await set(name, undefined);
      await eventually(() => marks(page), pageMarks);
    }
  },
};

exports.run = async () => {
  for (const [name, check] of Object.entries(checks)) {
    const error = await check().then(() => null, (reason) => reason.stack);
    appendFileSync(uriOf("results").fsPath, `${JSON.stringify({ name, error })}\n`);
  }
};

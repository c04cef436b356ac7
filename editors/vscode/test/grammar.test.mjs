import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { test } from "node:test";
import oniguruma from "vscode-oniguruma";
import textmate from "vscode-textmate";

const resolve = createRequire(import.meta.url).resolve;
const read = (path) => readFileSync(resolve(path), "utf8");
const { contributes } = JSON.parse(read("../package.json"));

// One mark per character: the token's own scope, "_" inside a tag, " " in the text around it.
const marks = {
  "punctuation.section.embedded.begin": "<", "punctuation.section.embedded.end": ">",
  "keyword.control.include": "I", "keyword.control.conditional": "O", "keyword.operator.logical": "!",
  "keyword.control.loop": "D", "support.function.filter": "F", "variable.other": "v",
  "entity.name.namespace": "n", "punctuation.separator.comma": ",", "punctuation.separator.path": ":",
  "variable.language.wildcard": "*", "variable.language.key": "#", "string.unquoted.include": "f",
  "string.quoted.single.default": "d", "string.quoted.single.compare": "c", "string.unquoted.compare": "u",
  "punctuation.definition.string.begin": "(", "punctuation.definition.string.end": ")",
  "comment.block": "-", "constant.character.escape": "e", "meta.embedded.inline": "_",
  "invalid.illegal.quote": "Q", "invalid.illegal.wildcard": "W", "invalid.illegal.separator": "S",
};

const sources = {
  "text.html.zorvel": "../" + contributes.grammars[0].path,
  "text.html.basic": "tm-grammars/grammars/html.json",
  "source.css": "tm-grammars/grammars/css.json",
  "source.js": "tm-grammars/grammars/javascript.json",
};
await oniguruma.loadWASM(readFileSync(resolve("vscode-oniguruma/release/onig.wasm")));
const registry = new textmate.Registry({
  onigLib: Promise.resolve(oniguruma),
  loadGrammar: async (scope) => sources[scope] ? textmate.parseRawGrammar(read(sources[scope]), "g.json") : null,
});
const grammar = await registry.loadGrammar(contributes.grammars[0].scopeName);

const mark = (scopes) => {
  const own = scopes.slice(1).findLast((scope) => scope.endsWith(".zorvel"));
  return own ? marks[own.slice(0, -".zorvel".length)] ?? "?" : " ";
};
let stack;
const marked = (line) => {
  const { tokens, ruleStack } = grammar.tokenizeLine(line, stack);
  stack = ruleStack;
  return tokens.map((t) => mark(t.scopes).repeat(Math.min(t.endIndex, line.length) - t.startIndex)).join("");
};
const tokenize = (text) => {
  stack = textmate.INITIAL;
  return text.split("\n").map(marked).join("\n");
};

const cases = [
  ["a{{b}}c}d {{{x}} }{{{{y}}}}",
   " ee ee    ee<v>   eeee eeee"],
  ["{ a}{\ta}{\ra}{\na}{",
   "             \n   "],
  ["{}{\u000binclude x}{\fx}{\u0001x}",
   "<><_vvvvvvv_v><_v><vv>"],
  ["{a{{b} {a{}c} {a{b}c}{{ {'{}{{'}",
   "<veev> <vvvv> <vvv>  ee <(ddee)>"],
  ["{a b::c 'it's {{b'  } {'plain'}{a ''}{name",
   "<v_v::v_(dddddeed)__> <(ddddd)><v_()><vvvv"],
  ["{a 'b}{a '}{a'b}{a ''x}{a 'b{}'c}",
   "<v_QQ><v_Q><vQv><v_QQQ><v_QQQQQQ>"],
  ["{a\n b\t'd\ne'}f",
   "<v\n_v_(d\nd)> "],
  ["{Include x}{includes}{optionalFlag}{!optionalx}{ include x}",
   "<vvvvvvv_v><IIIIIIIf><OOOOOOOOvvvv><!OOOOOOOOv>            "],
  ["{dynamics}{rdynamic::*}{/dynamical}{rawurlencodeq}{! optional}",
   "<DDDDDDDv><DDDDDDDDSSW><DDDDDDDD--><FFFFFFFFFFFFv><v_vvvvvvvv>"],
  ["{include\tdir/a b.tpl  }{include page::top}{include *.tpl}",
   "<IIIIIII_fffffffffff__><IIIIIII_ffff::fff><IIIIIII_fffff>"],
  ["{include rows::*}{include .*}{include x::[*]::y}{include a::}",
   "<IIIIIII_ffff::W><IIIIIII_WW><IIIIIII_f::WWW::f><IIIIIII_fSS>"],
  ["{include *}{include a*}{include .*x}{include a.*}{include a{{b}",
   "<IIIIIII_W><IIIIIII_ff><IIIIIII_fff><IIIIIII_fff><IIIIIII_feef>"],
  ["{a::b::c}{*}{.*}{[*]}{.*::b}{n::*}{n::*::b::c}{n::[*]}{a:b::c}",
   "<v::v::v><*><**><###><**::v><n::*><n::*::v::v><n::###><vvv::v>"],
  ["{x::.*}{a.*}{[*]x}{**}{x *::t [*]}{a\u00a0b}{n::*x}",
   "<v::vv><vvv><vvvv><vv><v_*::v_###><vvv><v::vv>"],
  ["{a::}{::a}{a:::b}{*::*}{a::b::*}{[*]::x}{n::[*]::x}{a::*::[*]}",
   "<vSS><SSv><vSSSv><*::W><v::v::W><WWW::v><v::WWW::v><n::*::WWW>"],
  ["{optional a}x{/optional}{!optional a::b }{/optional any {}thing }",
   "<OOOOOOOO_v> <OOOOOOOOO><!OOOOOOOO_v::v_><OOOOOOOOO_-----------_>"],
  ["{optional s 'i{{s'}{optional n 3 }{optional s  act {{ive}",
   "<OOOOOOOO_v_(ceec)><OOOOOOOO_v_u_><OOOOOOOO_v_uuuuueeuuu>"],
  ["{optional a x'b'c'y}{optional a it's}{optional a\tb c}{optional n::[*] 3}",
   "<OOOOOOOO_v__(ccc)_><OOOOOOOO_v_uuuu><OOOOOOOO_vvv_u><OOOOOOOO_n::###_u>"],
  ["{dynamic rows}{rdynamic item,rows}{/rdynamic}{/dynamic x}",
   "<DDDDDDD_vvvv><DDDDDDDD_nnnn,vvvv><DDDDDDDDD><DDDDDDDD_->"],
  ["{dynamic a,b,c}{dynamic item , rows}{dynamic sub,item::*::kids}",
   "<DDDDDDD_n,vvv><DDDDDDD_nnnnn,_vvvv><DDDDDDD_nnn,nnnn::*::vvvv>"],
  ["{addslashes a}{htmlentities a b}{htmlspecialchars a 'd'}{rawurlencode r::[*]}",
   "<FFFFFFFFFF_v><FFFFFFFFFFFF_vvv><FFFFFFFFFFFFFFFF_vvvvv><FFFFFFFFFFFF_n::###>"],
  ["<p class='x {a '>'}' {b}>{c}</p><!-- {d} -->",
   "            <v_(d)>  <v> <v>         <v>    "],
  ["<style>p { color: {c} } q{{r: 1}}</style><script>f('{a}') { x }</script>{b}",
   "                  <v>    ee    ee                   <v>                 <v>"],
  ["<li{optional a} class='b {c}'>{d}</li>",
   "   <OOOOOOOO_v>          <v>  <v>     "],
  ["<h{n} id=i>{a}</h{n}><br{a}/>{b}",
   "  <v>      <v>   <v>    <v>  <v>"],
  ["<option value=a{b}c?{d 'e f'}{optional s} selected{/optional}>{g}",
   "               <v>  <v_(ddd)><OOOOOOOO_v>         <OOOOOOOOO> <v>"],
  ["<p x-y{a}='b {c}' {d}='{e}' f1{/optional}>{g}",
   "      <v>    <v>  <v>  <v>    <OOOOOOOOO> <v>"],
  ["<style{a '>'} media='{b}'>p { background: url(/i/{c}.png) }</style>{d}",
   "      <v_(d)>        <v>                         <v>               <v>"],
  ["<script{a} src=b{c}>if (a<b) f(`${d}`, '{e}')\n</script>{f}",
   "       <v>      <v>              <v>    <v>  \n         <v>"],
  ["{optional\n a 'x'}{dynamic\n n,rows}",
   "<OOOOOOOO\n_v_(c)><DDDDDDD\n_n,vvvv>"],
];
for (const [template, expected] of cases) {
  test(JSON.stringify(template), () => assert.equal(tokenize(template), expected));
}

test("the text around the tags is HTML, with styles and scripts", () => {
  const line = "<p class='x {a}'><li{a} id=i{b} x-y{c}='z'><style{a}>q{{}}</style><script{a}>let v</script>";
  const { tokens } = grammar.tokenizeLine(line, textmate.INITIAL);
  const scopesOf = (word) => tokens.find((token) => line.slice(token.startIndex, token.endIndex) === word)?.scopes ?? [];
  const scopes = {
    p: "entity.name.tag.html", "x ": "string.quoted.single.html", li: "entity.name.tag.html", id: "entity.other.attribute-name.html",
    i: "string.unquoted.html", "x-y": "entity.other.attribute-name.html", z: "string.quoted.single.html",
    style: "entity.name.tag.html", q: "source.css", script: "entity.name.tag.html", let: "source.js",
  };
  for (const [word, scope] of Object.entries(scopes)) assert.ok(scopesOf(word).includes(scope), word);
});

test("folding markers", () => {
  const { start, end } = JSON.parse(read("../language-configuration.json")).folding.markers;
  const folding = (line) => {
    const found = line.match(new RegExp(`(${start})|(?:${end})`));
    return found ? (found[1] ? "start" : "end") : "none";
  };
  const lines = {
    "  {optional a}": "start", "<ul>{rdynamic n,rows}": "start", "{!optional a}": "start", "{/optional}": "end",
    "x {/dynamic x}": "end", "{optional a}x{/optional}": "none", "{{optional a}}": "none", "{a}": "none",
  };
  for (const [line, expected] of Object.entries(lines)) assert.equal(folding(line), expected, line);
});

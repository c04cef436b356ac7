#!/usr/bin/env node
// Uses the playground in a browser and prints a line per check; --screenshot takes docs/playground.png as well.
import { readdirSync, readFileSync } from 'node:fs'
import { createServer } from 'node:http'
import { TMPDIR, baseURL, browser, check, close } from './demo.mjs'

const context = await browser.newContext({ baseURL, viewport: { width: 1200, height: 720 } })
const visits = []
const elsewhere = createServer(({ url }, response) => { visits.push(url); response.end() }).listen(0, '127.0.0.1')
let page = await context.newPage()

const text = selector => page.locator(selector).innerText()
const look = () => page.frameLocator('iframe').locator('body').innerText()
const editor = name => page.getByRole('textbox', { name, exact: true })

/** What is typed takes a while to show. */
async function shows(name, read, wanted) {
  let got
  for (const end = Date.now() + 15_000; Date.now() < end; await page.waitForTimeout(50)) {
    got = await read()
    if (got === wanted) break
  }
  check(name, got, wanted)
}

async function type(label, content) {
  await editor(label).focus()
  await page.keyboard.press('Control+a')
  await page.keyboard.insertText(content)
}

const choose = name => page.getByLabel('Example').selectOption(name)
const loops = (depth, body) => '{dynamic a}'.repeat(depth) + body + '{/dynamic}'.repeat(depth)
const ten = '{"a": [1, 2, 3, 4, 5, 6, 7, 8, 9, 10]}'

await page.goto('/playground')
await shows('the first recipe is open', async () => (await look()).split('\n')[0], '3 products')
if (process.argv.includes('--screenshot')) {
  await choose('The active entry of a menu')
  await type('Template menu.html.tpl', `${await text('.cm-content >> nth=0')}\n<p>Hello {nmae}</p>`.replaceAll('\n\n', '\n'))
  await page.waitForSelector('.cm-lint-marker')
  await page.screenshot({ path: 'docs/playground.png' })
}

await choose('Comments')
await type('Template note.html.tpl', 'Hello {name}')
await type('Data', "['name' => 'Ann']")
await shows('a page of what was typed', look, 'Hello Ann')
check('its tags are marked', await page.locator('.tag-tag').allInnerTexts(), ['{name}'])
check('it tells the time and the size', /^\d+ µs, 9 bytes$/.test(await text('#figures')), true)
await type('Template note.html.tpl', 'Hello {name}\n{optional name}')
await shows('a fault with its place', () => text('#error'), 'note.html.tpl:2: Missing closing tag')
check('a mark in the margin of its line', (await page.locator('.cm-gutter-lint .cm-gutterElement:has(.cm-lint-marker-error)').boundingBox()).y,
  (await page.locator('.cm-lineNumbers .cm-gutterElement:text-is("2"):visible').first().boundingBox()).y)
await type('Data', "['name' => \nexec('id')]")
await shows('data that is refused', () => text('#error'), 'data:2: The data may hold arrays, numbers, texts, true, false and null; not exec')

await type('Data', "['name' => 'Ann']")
page.once('dialog', dialog => dialog.accept('part.tpl'))
await page.getByText('New file').press('Enter')
await page.keyboard.insertText('<b>{name}</b>')
await page.getByRole('radio', { name: 'part.tpl' }).press('ArrowLeft')
await type('Template note.html.tpl', 'Dear {include part.tpl}')
await shows('an include, by keyboard alone', look, 'Dear Ann')
const shared = page.url()

const away = `http://127.0.0.1:${elsewhere.address().port}`
await type('Template note.html.tpl', `<p>before</p><script>document.querySelector('p').textContent = 'after'</script><img src="${away}/a.png">
  <meta http-equiv="refresh" content="0; url=${away}/b"><a href="${away}/c">away</a>
  <style>@import "${away}/d"; p { background: url(${away}/e) }</style><iframe src="${away}/f"></iframe>`)
await shows('a page with a script is told of', () => text('#findings'), 'The frame of the page runs no scripts')
check('it has not run', await page.frameLocator('iframe').locator('p').innerText(), 'before')
await page.frameLocator('iframe').getByText('away').click()
await page.waitForTimeout(500)
check('and loads nothing, nor leads away', visits, [])

await choose('Comments')
await type('Data', ten)
for (const [name, template, told] of [
  ['a loop without end', loops(40, ''), 'Maximum execution time of 1 second exceeded'],
  ['a page of megabytes', loops(6, 'megabytes'), 'More than a megabyte came out: it was stopped'],
]) {
  await type('Template note.html.tpl', template)
  await shows(`${name} ends in a message`, () => text('#error'), told)
}
await type('Template note.html.tpl', '{include /etc/passwd}{a::9}')
await shows('and the server goes on', look, '10')
check('nothing is left of the pages', readdirSync(TMPDIR).filter(name => name.startsWith('zorvel-playground')), [])
const form = await context.request.post('/playground/render', { headers: { 'Content-Type': 'text/plain' }, data: '{}' })
check("another site's form is refused", form.status(), 415)
const port = Number(new URL(baseURL).port).toString(16).toUpperCase().padStart(4, '0')
const sockets = ['tcp', 'tcp6'].flatMap(name => readFileSync(`/proc/net/${name}`, 'utf8').match(/\w+:\w{4} \w+:0{4} 0A/g) ?? [])
check('it listens on 127.0.0.1 only', sockets.filter(socket => socket.includes(`:${port} `)), [`0100007F:${port} 00000000:0000 0A`])

page = await context.newPage()
await page.route('**/editor.js', route => route.abort())
await page.setViewportSize({ width: 380, height: 800 })
await page.goto(shared)
await shows('an address that was sent around, without the bundled editor', look, 'Dear Ann')
await type('Data', '{"name": "Bob"}')
await shows('plain panes render what is typed', look, 'Dear Bob')
check('a narrow window needs no scrolling aside', await page.evaluate(() => document.documentElement.scrollWidth), 380)
close()

#!/usr/bin/env node
// Uses the shop in a browser and prints a line per check; --screenshot takes docs/shop.png as well.
import { execFileSync, spawn } from 'node:child_process'
import { mkdtempSync, rmSync } from 'node:fs'
import { tmpdir } from 'node:os'

process.chdir(new URL('../..', import.meta.url).pathname)
execFileSync('script/setup/packages', ['chromium', 'fonts-liberation'])
execFileSync('npm', 'install --loglevel=error --prefer-offline --no-save --prefix build/browser playwright-core@1.56.1'.split(' '))
const { chromium } = await import('../../build/browser/node_modules/playwright-core/index.mjs')

const TMPDIR = mkdtempSync(`${tmpdir()}/zorvel-shop-`)
const server = spawn('script/demo', ['--serve', '0'], { env: { ...process.env, TMPDIR } })
process.on('exit', () => { server.kill(); rmSync(TMPDIR, { recursive: true }) })
const baseURL = await new Promise(found =>
  server.stderr.on('data', text => /\) started/.test(text) && found(/http:[^)]+/.exec(text)[0])))

const browser = await chromium.launch({ executablePath: '/usr/bin/chromium', args: ['--disable-gpu', '--disable-quic'] })
const page = await browser.newPage({ baseURL, viewport: { width: 1000, height: 950 } })
const submit = button => Promise.all([page.waitForEvent('load'), page.click(button)])
const texts = selector => page.locator(selector).allTextContents()
function check(name, got, wanted) {
  const good = JSON.stringify(got) === JSON.stringify(wanted)
  console.log(good ? `ok ${name}` : `not ok ${name}: ${JSON.stringify(got)}`)
  process.exitCode ||= good ? 0 : 1
}

await page.goto('/')
check('the latest news come first', await texts('.hero time'), ['30 March', '16 March', '2 March'])
if (process.argv.includes('--screenshot')) await page.screenshot({ path: 'docs/shop.png' })
await page.fill('[type=search]', 'glass pen <')
await submit('header button')
check('a search comes back as text and finds', await texts('main h1, h3'), ['Results for “glass pen <”', 'Glass pen <clear>'])
await page.goto('/product?item=notebook')
check('a script gets a quoted name', await texts('#seen'), ["Last seen at O'Hara's Paper & Ink: Traveller's notebook"])
await page.goto('/guestbook')
for (const words of ['<b>Fine</b> & "fair"', '</textarea>it\'s']) {
  await page.fill('textarea', words)
  await submit('main button')
  await page.fill('[name=name]', 'Ann <&> Bob')
  await submit('main button')
}
check('the guest book shows what was written, the latest first', await texts('blockquote p'), ['</textarea>it\'s', '<b>Fine</b> & "fair"'])
browser.close().then(() => process.exit())

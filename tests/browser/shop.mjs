#!/usr/bin/env node
// Uses the shop in a browser and prints a line per check; --screenshot takes docs/shop.png as well.
import { baseURL, browser, check, close } from './demo.mjs'

const page = await browser.newPage({ baseURL, viewport: { width: 1000, height: 950 } })
const submit = button => Promise.all([page.waitForEvent('load'), page.click(button)])
const texts = selector => page.locator(selector).allTextContents()

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
close()

// What is in the address: the templates and the data, as JSON, deflated, in base64url.

const through = async (bytes, stream) =>
  new Uint8Array(await new Response(new Blob([bytes]).stream().pipeThrough(stream)).arrayBuffer())

export async function encode(state) {
  const packed = await through(JSON.stringify(state), new CompressionStream('deflate-raw'))
  const binary = Array.from(packed, byte => String.fromCharCode(byte)).join('')
  return btoa(binary).replaceAll('+', '-').replaceAll('/', '_').replaceAll('=', '')
}

export async function decode(text) {
  const binary = atob(text.replaceAll('-', '+').replaceAll('_', '/'))
  const packed = Uint8Array.from(binary, character => character.charCodeAt(0))
  const { files, data } = JSON.parse(new TextDecoder().decode(await through(packed, new DecompressionStream('deflate-raw'))))
  const texts = [...Object.values(files), data]
  if (texts.length < 2 || texts.some(text => typeof text !== 'string')) throw new Error('no state')
  return { files, data }
}

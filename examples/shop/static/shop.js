// The product seen last, shown at the foot of every page.
function remember(name) {
  sessionStorage.setItem('seen', name)
}

addEventListener('DOMContentLoaded', () => {
  const name = sessionStorage.getItem('seen')
  if (name) document.getElementById('seen').textContent = `Last seen: ${name}`
})

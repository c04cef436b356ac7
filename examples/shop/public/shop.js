// The product seen last, shown at the foot of every page.
addEventListener('DOMContentLoaded', () => {
  const product = document.querySelector('.detail')
  if (product) sessionStorage.setItem('seen', product.dataset.name)
  const name = sessionStorage.getItem('seen')
  if (name) document.getElementById('seen').textContent = `Last seen at ${shop}: ${name}`
})

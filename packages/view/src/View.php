<?php

declare(strict_types=1);

namespace Zorvel;

use Zorvel\Strict\Check;
use Zorvel\Syntax\Fault;

/** Makes pages from the templates of some folders. */
final class View
{
    private readonly Folders $folders;

    private ?Bundle $bundle = null;

    /** @var array<array-key, mixed> */
    private array $shared = [];

    /**
     * @param string|list<string> $folders where templates and what they include are looked for, in this order
     * @param bool $strict for development: a tag that would silently come to nothing is a TemplateError
     */
    public function __construct(string|array $folders, private readonly bool $strict = false)
    {
        $this->folders = new Folders((array) $folders);
    }

    /**
     * A view of the templates that `zorvel bundle` has put into a file, the fast way to a page.
     *
     * @param string|list<string> $folders for the includes that have stayed: the command tells which
     */
    public static function bundled(string $file, string|array $folders = []): self
    {
        $view = new self($folders);
        $view->bundle = new Bundle($file, $folders === [] ? null : $view->folders);

        return $view;
    }

    /**
     * Data for every page. What `render` is given wins.
     *
     * @param array<array-key, mixed> $data
     */
    public function share(array $data): void
    {
        $this->shared = $data + $this->shared;
    }

    /**
     * The page. Whatever the data is made of, the template sees texts, booleans and arrays: see DataWalk.
     *
     * @param string $template its path inside one of the folders
     * @param array<array-key, mixed> $data
     * @throws TemplateError
     */
    public function render(string $template, array $data = []): string
    {
        $known = $this->shared === [] ? $data : $data + $this->shared;
        if ($this->bundle !== null) {
            return $this->bundle->page($template, new DataWalk($template)->plain($known));
        }
        $this->folders->find($template);
        if ($this->strict) {
            $known = new DataWalk($template, keepsNull: true)->plain($known);
        }
        $plain = new DataWalk($template)->plain($known);

        return $this->folders->searched(fn(): string => $this->page($template, $plain, $known));
    }

    /**
     * @param array<array-key, mixed> $plain
     * @param array<array-key, mixed> $known
     */
    private function page(string $template, array $plain, array $known): string
    {
        try {
            $page = Engine::page($template, $plain, ignoresArrays: $this->strict);
        } catch (EngineFailure $failure) {
            $fault = Fault::of($failure->getMessage(), $template);
            throw new TemplateError($fault->template, $fault->what, $fault->tag);
        }
        foreach ($this->strict ? Check::findings($template, $known) : [] as $finding) {
            throw new TemplateError($finding->template, $finding->what, $finding->tag);
        }

        return $page;
    }
}

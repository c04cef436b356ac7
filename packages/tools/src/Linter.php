<?php

declare(strict_types=1);

namespace Zorvel\Tools;

use Zorvel\DataWalk;
use Zorvel\Folders as ViewFolders;
use Zorvel\Strict\Check;
use Zorvel\TemplateError;
use Zorvel\Tools\Rule\Rules;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Includes;
use Zorvel\Tools\Template\Template;
use Zorvel\View;

/** Applies the rules to templates, then makes their pages, so that nothing that makes a page null is missed. */
final readonly class Linter
{
    private Includes $includes;

    private Rules $rules;

    /** @param ?array<array-key, mixed> $data for each page, when there is some */
    public function __construct(private Folders $folders, private ?array $data = null)
    {
        $this->includes = new Includes($folders);
        $this->rules = new Rules($folders, $this->includes, $data);
    }

    /**
     * Of several errors about one tag, and of several warnings, the first is told.
     *
     * @param list<Template> $templates
     * @return list<Finding> by file and line, also of files that the templates include
     */
    public function lint(array $templates): array
    {
        $findings = [];
        foreach ([$this->rules->findings(...), $this->findingsOfPage(...)] as $findingsIn) {
            foreach ($templates as $template) {
                foreach ($findingsIn($template) as $finding) {
                    $findings["$finding->file:$finding->line:$finding->column:{$finding->level->value}"] ??= $finding;
                }
            }
        }
        usort($findings, fn(Finding $a, Finding $b): int => [$a->file, $a->line, $a->column] <=> [$b->file, $b->line, $b->column]);

        return $findings;
    }

    /** @return iterable<Finding> what makes the page null, else what comes to nothing in it */
    private function findingsOfPage(Template $template): iterable
    {
        if (!is_file($template->file)) {
            return;
        }
        $folders = $this->folders->around($template->file);
        $name = $folders->nameOf($template->file);
        try {
            @new View($folders->paths)->render($name);
        } catch (TemplateError $error) {
            $faulty = Template::fromFile($folders->find($error->getTemplate()) ?? $template->file);
            yield $faulty->finding($error->getTag()->offset ?? 0, Level::Error, 'broken-page', $error->getReason());

            return;
        }
        if ($this->data !== null && !$this->includes->has($template)) {
            yield from $this->silentTags($name, $folders, $this->data);
        }
    }

    /**
     * @param array<array-key, mixed> $data
     * @return iterable<Finding>
     */
    private function silentTags(string $name, Folders $folders, array $data): iterable
    {
        $data = new DataWalk($name, keepsNull: true)->plain($data);
        $templates = [];
        foreach (new ViewFolders($folders->paths)->searched(fn(): array => Check::findings($name, $data)) as $finding) {
            $template = $templates[$finding->template] ??= Template::fromFile((string) $folders->find($finding->template));
            yield $template->finding($finding->tag->offset, Level::Warning, 'silent-tag', $finding->what);
        }
    }
}
